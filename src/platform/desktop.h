// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace marlinset {

/// A value of the machine's registry: none, a text, or a double word.
using RegistryValue = std::variant<std::monostate, std::string, std::uint32_t>;

/// The operator's desktop around the tool.
class Desktop {
 public:
  virtual ~Desktop() = default;
  /// Now, in the short format of the operator's locale.
  virtual std::string DateAndTime() const = 0;
  /// A named value of a key of the machine's registry; none if it is missing, or if the system has no
  /// registry.
  virtual RegistryValue Registry(const std::string& key, const std::string& name) const = 0;
  /// Starts a program and does not wait for it. Returns false if it can't be started.
  virtual bool Run(const std::string& program) = 0;
};

}  // namespace marlinset
