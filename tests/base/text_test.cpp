// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"

#include <gtest/gtest.h>

#include "base/printable.h"

namespace marlinset {
namespace {

TEST(Text, ConvertsToTheCodePageAndBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::vector<std::uint8_t> bytes = {static_cast<std::uint8_t>(byte)};
    EXPECT_EQ(ToCodePage(FromCodePage(bytes)), bytes) << byte;
  }
  const struct {
    std::string_view text;
    std::vector<std::uint8_t> bytes;
  } rows[] = {
      {"€‚Ÿ~", {0x80, 0x82, 0x9F, 0x7E}},
      {"\u00A0ÿ×", {0xA0, 0xFF, 0xD7}},
      {"αЖ中😀", {'?', '?', '?', '?'}},
      {"\u0080\u0081", {'?', 0x81}},  // 0x81 holds no character and stands for itself
      {"a\xC3", {'a', '?'}},          // text that was cut inside a character
      {"\xFF\x80z", {'?', '?', 'z'}},
  };
  for (const auto& row : rows) EXPECT_EQ(ToCodePage(row.text), row.bytes) << row.text;
}

TEST(Text, CountsAndCutsCharacters) {
  const std::string text = "1€ä😀x";
  EXPECT_EQ(LengthOf(text), 5U);
  EXPECT_EQ(LeftOf(text, 3), "1€ä");
  EXPECT_EQ(RightOf(text, 2), "😀x");
  EXPECT_EQ(LeftOf(text, 9) + RightOf(text, 9), text + text);
  EXPECT_EQ(Trim(" \u00A0a b\t "), "\u00A0a b\t") << "only blanks are stripped";
}

TEST(Text, CapitalisesOneToOne) {
  EXPECT_EQ(UpperOf("az{`@[AZ09 àöøþ÷ÿß šœž ĺľŉňĸ αωжёяı 中😀\xFF"),
            "AZ{`@[AZ09 ÀÖØÞ÷Ÿß ŠŒŽ ĹĽŉŇĸ ΑΩЖЁЯI 中😀\xFF");
}

TEST(Text, FromOutsideIsPrintedWithoutItsControls) {
  EXPECT_EQ(Printable("a\x1B[2J\n\t\x7F\u0090\x9B äé\xE4\u00A0"), R"(a\x1B[2J\x0A\x09\x7F\x90\x9B äé)"
                                                                  "\xE4\u00A0");
  EXPECT_EQ(Printable("\u061C\u200D\u200E\u2028\u202E\u2069中"), R"(\u061C)"
                                                                 "\u200D"
                                                                 R"(\u200E\u2028\u202E\u2069)"
                                                                 "中");
  EXPECT_EQ(PrintableLines("a\n\r\u202E\n"), "a\n\\x0D\\u202E\n");
}

}  // namespace
}  // namespace marlinset
