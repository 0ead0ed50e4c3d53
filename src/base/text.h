// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace marlinset {

// Text inside the tool is UTF-8; these count, cut and capitalise characters, not bytes.

/// Whether the text is undamaged UTF-8.
bool IsUtf8(std::string_view text);
/// Number of characters.
std::size_t LengthOf(std::string_view text);
/// The first character's code point; 0 for an empty text.
char32_t CodeOf(std::string_view text);
/// The text of one code point.
std::string TextOfCode(char32_t code);
/// The first `count` characters, or all when there are fewer.
std::string LeftOf(std::string_view text, std::size_t count);
/// The last `count` characters, or all when there are fewer.
std::string RightOf(std::string_view text, std::size_t count);
/// Replaces each character by its capital; a character without a single capital stays ("ß").
std::string UpperOf(std::string_view text);
/// The text without the blanks (U+0020) at both ends.
std::string Trim(std::string_view text);
/// The text in quotation marks, for messages. Marks inside it stay as they are.
std::string Quoted(std::string_view text);
/// Whether the character is one of 0 to 9, in every locale.
bool IsDigit(char c);
/// Compares names of controls, keys and columns without regard to the case of the letters A to Z.
bool EqualNoCase(std::string_view a, std::string_view b);

/// One byte for each character in Windows code page 1252, as the unit and the files in the field use it. A
/// character that the code page does not have becomes "?".
std::vector<std::uint8_t> ToCodePage(std::string_view text);
/// The reverse; all 256 bytes survive the round trip.
std::string FromCodePage(const std::vector<std::uint8_t>& bytes);

/// Decimal text. A blank takes the place of the sign if the number is not negative: 46 is " 46".
std::string SignedText(std::int64_t number);
/// Capital hexadecimal digits without leading zeros: 15 is "F".
std::string HexText(std::uint64_t number);
/// Exactly two capital hexadecimal digits.
std::string HexByte(std::uint8_t byte);

}  // namespace marlinset
