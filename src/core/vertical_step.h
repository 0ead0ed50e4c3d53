// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace marlinset {

/// Video lines that one click of a window's vertical spin moves, one character row of the font size: 4 for
/// sizes that begin with "L", 2 for "S", otherwise 1.
constexpr int VerticalStep(std::string_view fontSize) {
  if (fontSize.starts_with('L')) return 4;
  return fontSize.starts_with('S') ? 2 : 1;
}

}  // namespace marlinset
