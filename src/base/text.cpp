// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace marlinset {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// The characters of bytes 0x80 to 0x9F; the five bytes without a character map to themselves.
constexpr std::array<char32_t, 32> kPageUpperHalf = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// Reads the character that begins at `position` and moves past it; each byte of a damaged sequence counts as
/// one character.
char32_t NextCharacter(std::string_view text, std::size_t& position) {
  const auto first = static_cast<unsigned char>(text[position++]);
  if (first < 0x80) return first;
  int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  if (first < 0xC2 || first > 0xF4) return kReplacement;
  char32_t code = first & (0x3FU >> more);
  std::size_t end = position;
  for (; more > 0 && end < text.size() && IsContinuation(text[end]); --more, ++end) {
    code = (code << 6U) | (static_cast<unsigned char>(text[end]) & 0x3FU);
  }
  if (more > 0) return kReplacement;
  position = end;
  return code;
}

void Append(std::string& text, char32_t code) {
  const auto tail = [&](unsigned shift) {
    text.push_back(static_cast<char>(0x80U | ((code >> shift) & 0x3FU)));
  };
  if (code < 0x80) {
    text.push_back(static_cast<char>(code));
  } else if (code < 0x800) {
    text.push_back(static_cast<char>(0xC0U | (code >> 6U)));
    tail(0);
  } else if (code < 0x10000) {
    text.push_back(static_cast<char>(0xE0U | (code >> 12U)));
    tail(6);
    tail(0);
  } else {
    text.push_back(static_cast<char>(0xF0U | (code >> 18U)));
    tail(12);
    tail(6);
    tail(0);
  }
}

char32_t Capital(char32_t code) {
  const auto in = [code](char32_t low, char32_t high) { return code >= low && code <= high; };
  if (in('a', 'z') || (in(0xE0, 0xFE) && code != 0xF7))
    return code - 0x20;  // Latin, without the division sign
  if (code == 0xFF) return 0x178;
  if (in(0x100, 0x137) || in(0x14A, 0x177)) return code & ~char32_t{1};  // Latin Extended-A, capitals even
  if (in(0x139, 0x148) || in(0x179, 0x17E)) return code % 2 == 0 ? code - 1 : code;  // capitals odd
  if (in(0x3B1, 0x3C9) && code != 0x3C2) return code - 0x20;                         // Greek
  if (in(0x430, 0x44F)) return code - 0x20;                                          // Cyrillic
  if (in(0x450, 0x45F)) return code - 0x50;
  return code;
}

}  // namespace

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t begin = at;
    const bool damaged = NextCharacter(text, at) == kReplacement;
    if (damaged && at - begin == 1) return false;  // the mark itself has three bytes
  }
  return true;
}

std::size_t LengthOf(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) NextCharacter(text, at);
  return count;
}

char32_t CodeOf(std::string_view text) {
  std::size_t at = 0;
  return text.empty() ? 0 : NextCharacter(text, at);
}

std::string TextOfCode(char32_t code) {
  std::string text;
  Append(text, code);
  return text;
}

std::string LeftOf(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  while (count-- > 0 && at < text.size()) NextCharacter(text, at);
  return std::string(text.substr(0, at));
}

std::string RightOf(std::string_view text, std::size_t count) {
  const std::size_t length = LengthOf(text);
  const std::string left = LeftOf(text, length > count ? length - count : 0);
  return std::string(text.substr(left.size()));
}

std::string UpperOf(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t begin = at;
    const char32_t code = NextCharacter(text, at);
    if (code == kReplacement) {
      result += text.substr(begin, at - begin);
    } else {
      Append(result, code == 0x131 ? U'I' : Capital(code));
    }
  }
  return result;
}

std::string Trim(std::string_view text) {
  const auto begin = text.find_first_not_of(' ');
  if (begin == std::string_view::npos) return {};
  return std::string(text.substr(begin, text.find_last_not_of(' ') - begin + 1));
}

std::string Quoted(std::string_view text) {
  return '"' + std::string(text) + '"';
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

std::vector<std::uint8_t> ToCodePage(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t code = NextCharacter(text, at);
    const auto* upper = std::find(kPageUpperHalf.begin(), kPageUpperHalf.end(), code);
    if (upper != kPageUpperHalf.end()) {
      bytes.push_back(static_cast<std::uint8_t>(0x80 + (upper - kPageUpperHalf.begin())));
    } else if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) {
      bytes.push_back(static_cast<std::uint8_t>(code));
    } else {
      bytes.push_back('?');
    }
  }
  return bytes;
}

std::string FromCodePage(const std::vector<std::uint8_t>& bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    Append(text, byte >= 0x80 && byte < 0xA0 ? kPageUpperHalf[byte - 0x80U] : byte);
  }
  return text;
}

std::string SignedText(std::int64_t number) {
  return (number < 0 ? "" : " ") + std::to_string(number);
}

std::string HexText(std::uint64_t number) {
  std::string digits;
  do {
    digits.insert(digits.begin(), "0123456789ABCDEF"[number & 15U]);
    number >>= 4U;
  } while (number != 0);
  return digits;
}

std::string HexByte(std::uint8_t byte) {
  return (byte < 16 ? "0" : "") + HexText(byte);
}

}  // namespace marlinset
