// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace marlinset {

/// A number at the beginning of a text.
struct LeadingNumber {
  double value = 0;
  bool aloneInText = false;  ///< nothing but blanks follows
};

/// Reads a number at the beginning of a text, after any blanks, with a point as the decimal sign in every
/// locale. "inf" and "nan" are not numbers.
std::optional<LeadingNumber> ReadLeadingNumber(std::string_view text);
/// The number at the beginning of the text, 0 when there is none.
double LeadingNumberOf(std::string_view text);
/// Rounds to the even neighbour. Throws Overflow outside 16 bits.
std::int16_t Int16Of(double number);

}  // namespace marlinset
