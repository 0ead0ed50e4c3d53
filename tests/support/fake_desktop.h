// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/desktop.h"

namespace marlinset {

/// A desktop whose clock stands and whose registry holds what a test puts there.
class FakeDesktop : public Desktop {
 public:
  std::map<std::pair<std::string, std::string>, RegistryValue> registry;
  std::vector<std::string> started;

  std::string DateAndTime() const override { return "21/11/2026 14:30"; }
  RegistryValue Registry(const std::string& key, const std::string& name) const override {
    const auto found = registry.find({key, name});
    return found == registry.end() ? RegistryValue() : found->second;
  }
  bool Run(const std::string& program) override {
    started.push_back(program);
    return true;
  }
};

}  // namespace marlinset
