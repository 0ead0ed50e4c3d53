// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace marlinset {

/// Makes the names of a listing unique.
class UniqueNames {
 public:
  /// The name itself when it comes for the first time. Numbers further ones, and those that are themselves
  /// such a numbered name.
  std::string Unused(const std::string& name) {
    std::string unused = name;
    for (int& number = occurrences_[name]; !used_.insert(unused).second;) {
      number = std::max(number, 1) + 1;
      unused = name + " (" + std::to_string(number) + ")";
    }
    return unused;
  }

 private:
  std::map<std::string, int> occurrences_;
  std::set<std::string> used_;
};

}  // namespace marlinset
