// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <string_view>

namespace marlinset {

class FrmStart;

/// How vertical positions count in one font size. A position counts units of eight lines of a field.
struct FontSize {
  std::string_view text;  ///< in the list of sizes
  int step;               ///< units in a character row
  int smallestRow;        ///< the topmost row on the screen, in character rows as the unit counts them

  /// The row that goes to the unit for a position: the unit takes none above the smallest.
  constexpr int RowOf(int top) const { return std::max(top / step, smallestRow); }
};

/// The size of a text of the list; every text that units do not know counts like the smallest size.
const FontSize& FontSizeOf(std::string_view text);

/// The size that the panels show.
const FontSize& FontSizeInForce(const FrmStart& form);

}  // namespace marlinset
