// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "base/text.h"
#include "platform/settings_store.h"

namespace marlinset {

/// The settings of one test.
class MemorySettings : public SettingsStore {
 public:
  struct NoCase {
    bool operator()(const std::string& a, const std::string& b) const { return UpperOf(a) < UpperOf(b); }
  };
  std::map<std::string, std::string, NoCase> values;

  std::string GetSetting(std::string_view key, std::string_view defaultValue) const override {
    const auto found = values.find(std::string(key));
    return found == values.end() ? std::string(defaultValue) : found->second;
  }
  void SaveSetting(std::string_view key, std::string_view value) override {
    values.insert_or_assign(std::string(key), value);
  }
};

}  // namespace marlinset
