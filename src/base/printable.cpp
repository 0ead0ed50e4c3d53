// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/printable.h"

#include <algorithm>
#include <cstdint>

#include "base/text.h"

namespace marlinset {
namespace {

struct Range {
  char32_t first, last;
};

/// The control characters of one byte, those that set the direction of writing, and ends of lines.
constexpr Range kHidden[] = {{0, 0x1F},        {0x7F, 0x9F},     {0x61C, 0x61C},
                             {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}};

std::string Escaped(std::string_view text, bool keepsLines) {
  std::string printable;
  while (!text.empty()) {
    const std::string letter = LeftOf(text, 1);
    // A byte outside UTF-8 may be a control character to a terminal of another encoding.
    const char32_t code = letter.size() == 1 ? static_cast<std::uint8_t>(letter[0]) : CodeOf(letter);
    const bool hidden =
        !(keepsLines && code == '\n') && std::ranges::any_of(kHidden, [code](const Range& range) {
          return code >= range.first && code <= range.last;
        });
    if (!hidden) {
      printable += letter;
    } else if (code <= 0xFF) {
      printable += "\\x" + HexByte(static_cast<std::uint8_t>(code));
    } else {
      printable += (code < 0x1000 ? "\\u0" : "\\u") + HexText(code);
    }
    text.remove_prefix(letter.size());
  }
  return printable;
}

}  // namespace

std::string Printable(std::string_view text) {
  return Escaped(text, false);
}

std::string PrintableLines(std::string_view text) {
  return Escaped(text, true);
}

}  // namespace marlinset
