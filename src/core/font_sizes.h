// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <string_view>

namespace marlinset {

/// How vertical positions count in one font size. A position counts units of eight lines of a field.
struct FontSize {
  std::string_view text;  ///< in the list of sizes
  int step;               ///< units in a character row
  int smallestRow;        ///< the highest row that is still on the screen, as the unit counts rows

  /// The row that goes to the unit for a position: the unit takes none above the smallest.
  constexpr int RowOf(int top) const { return std::max(top / step, smallestRow); }
};

inline constexpr FontSize kFontSizes[] = {{"Large (32 lines/field)", 4, 8},
                                          {"Small (16 lines/field)", 2, 18}};
inline constexpr FontSize kOtherFontSize{"", 1, 37};

/// The size of a text of the list; every text that units do not know counts like the smallest size.
constexpr const FontSize& FontSizeOf(std::string_view text) {
  const auto* found = std::ranges::find(kFontSizes, text, &FontSize::text);
  return found == std::end(kFontSizes) ? kOtherFontSize : *found;
}

}  // namespace marlinset
