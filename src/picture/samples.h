// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marlinset {

/// What a sample text is made from.
struct SampleParts {
  std::string_view name;     ///< of the window, as the reference database has it
  std::string message = {};  ///< stands in for the window's own text, if there is one
  int symbol = 0;            ///< characters of the symbol in front
  int field = 0;             ///< characters of the field digit behind
};

/// A text of `columns` characters, not negative, such as the unit might burn in: "01:23:45:12" for a time
/// code. Symbol and field digit are stand-ins, since units draw their own.
std::string SampleOf(const SampleParts& parts, int columns);

}  // namespace marlinset
