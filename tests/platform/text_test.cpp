// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text.h"

#include <gtest/gtest.h>

namespace marlinset {
namespace {

TEST(Text, RoundTripsAllBytesOfTheCodePage) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::vector<std::uint8_t> bytes = {static_cast<std::uint8_t>(byte)};
    const std::string text = FromCodePage(bytes);
    EXPECT_EQ(LengthOf(text), 1U) << byte;
    EXPECT_EQ(ToCodePage(text), bytes) << byte;
  }
}

TEST(Text, ConvertsToTheCodePage) {
  const struct {
    std::string_view text;
    std::vector<std::uint8_t> bytes;
  } rows[] = {
      {"", {}},
      {"A~", {0x41, 0x7E}},
      {"€‚Ÿ", {0x80, 0x82, 0x9F}},
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
  EXPECT_EQ(LeftOf(text, 9), text);
  EXPECT_EQ(RightOf(text, 9), text);
  EXPECT_EQ(LeftOf(text, 0) + RightOf(text, 0) + RightOf("", 1), "");
  EXPECT_EQ(Trim("  a b\t "), "a b\t");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim("\u00A0x"), "\u00A0x") << "only blanks are stripped";
}

TEST(Text, CapitalisesOneToOne) {
  const struct {
    std::string_view text, capitals;
  } rows[] = {
      {"az{`@[AZ09", "AZ{`@[AZ09"}, {"àöøþ÷ÿ", "ÀÖØÞ÷Ÿ"}, {"ß", "ß"},     {"šœž", "ŠŒŽ"},
      {"ĺľŉňĸ", "ĹĽŉŇĸ"},           {"αωжёяı", "ΑΩЖЁЯI"}, {"中😀", "中😀"}, {"a\xFFz", "A\xFFZ"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(UpperOf(row.text), row.capitals);
    EXPECT_EQ(LengthOf(UpperOf(row.text)), LengthOf(row.text));
  }
}

TEST(Text, ComparesNamesWithoutRegardToCase) {
  EXPECT_TRUE(EqualNoCase("HardwareType", "hardwareTYPE"));
  EXPECT_FALSE(EqualNoCase("Load", "Loa"));
  EXPECT_FALSE(EqualNoCase("[", "{"));
  EXPECT_FALSE(EqualNoCase("Ä", "ä")) << "names are plain letters";
}

TEST(Text, WritesNumbersAsTheSystemDoes) {
  EXPECT_EQ(SignedText(0), " 0");
  EXPECT_EQ(SignedText(46), " 46");
  EXPECT_EQ(SignedText(-7), "-7");
  EXPECT_EQ(HexText(0), "0");
  EXPECT_EQ(HexText(0xB9), "B9");
  EXPECT_EQ(HexText(0xFFFFFFFF), "FFFFFFFF");
  EXPECT_EQ(HexByte(0) + HexByte(15) + HexByte(255), "000FFF");
}

}  // namespace
}  // namespace marlinset
