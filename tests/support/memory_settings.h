// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "platform/settings_store.h"

namespace marlinset {

/// Settings of one test, in the order of their first save.
class MemorySettings : public SettingsStore {
 public:
  std::vector<std::pair<std::string, std::string>> values;

  std::string GetSetting(std::string_view key, std::string_view defaultValue) const override {
    const auto found = std::find_if(values.begin(), values.end(),
                                    [key](const auto& entry) { return EqualNoCase(entry.first, key); });
    return found == values.end() ? std::string(defaultValue) : found->second;
  }

  void SaveSetting(std::string_view key, std::string_view value) override {
    for (auto& [name, stored] : values) {
      if (!EqualNoCase(name, key)) continue;
      stored = value;
      return;
    }
    values.emplace_back(key, value);
  }
};

}  // namespace marlinset
