// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/qcf_identification.h"
#include "files/qcf_listing.h"
#include "files/qcf_reader.h"
#include "files/qcf_writer.h"
#include "tests/files/sample.h"
#include "tests/support/database_tool.h"
#include "tests/support/table.h"

namespace marlinset {
namespace {

using ::testing::MatchesRegex;
using Texts = std::vector<std::string>;

TEST(QcfFormat, AFlippedByteIsRefusedOrKept) {
  for (const auto& [version, flip] : {std::pair(1, 0), {1, 0x01}, {1, 0xFF}, {2, 0}, {2, 0x80}, {2, 0xFF}}) {
    FileBytes bytes = Sample(version);
    for (std::uint8_t& byte : bytes) {
      byte = static_cast<std::uint8_t>(byte ^ flip);
      try {
        EXPECT_EQ(WriteDocument(ReadDocument(bytes)), bytes) << version << " at " << &byte - bytes.data();
      } catch (const RuntimeError&) {
        EXPECT_NE(flip, 0) << "refused";  // nothing else may come out of a damaged file
      }
      byte = static_cast<std::uint8_t>(byte ^ flip);
    }
  }
}

TEST(QcfFormat, TellsOtherFilesFromDamagedOnes) {
  const FileBytes good = Sample(2);
  constexpr std::size_t kModels = 10;
  constexpr std::size_t kVersion = kModels + 35 + 4;
  const std::size_t windows = Behind(good, "SD Clean");
  const auto fault = [](const FileBytes& bytes) -> std::string {
    try {
      return ReadDocument(bytes).entries.size() == 38 ? "" : "fields are missing";
    } catch (const QcfError& error) {
      return error.Which() == QcfError::Fault::kHeader ? "header" : "no model";
    } catch (const RuntimeError&) {
      return "damaged";
    }
  };
  const auto with = [&](std::size_t at, std::uint8_t byte) {
    FileBytes bytes = good;
    bytes[at] = byte;
    return bytes;
  };
  EXPECT_EQ(fault({0x51}), "damaged") << "short but agreeing";
  EXPECT_EQ(fault({0x51, 0x44}), "header");
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(fault(with(i, 0x7F)), "header") << i;
  for (const auto& [at, byte, refusal, why] :
       {std::tuple(kVersion + 3, 3, "header", "a later version"),
        {kVersion + 3, 0, "header", "no version"},
        {kVersion, 9, "", "only the last byte of the version counts"},
        {kModels + 6, 2, "no model", "a 7240"},
        {kModels + 4, 0, "no model", "no models at all"},
        {kModels + 10, 0xFF, "damaged", "a length that nobody can count to"},
        {6U, 1, "damaged", "a block longer than the file"},
        {kVersion - 4, 1, "damaged", "another one"},
        {windows + 3, 0, "damaged", "no windows"},
        {windows + 1, 0x7F, "damaged", "more windows than bytes"}}) {
    EXPECT_EQ(fault(with(at, static_cast<std::uint8_t>(byte))), refusal) << why;
  }
  FileBytes unnamed = with(kModels, kQcfReserved);
  unnamed[kModels + 4] = 4;
  EXPECT_EQ(fault(unnamed), "") << "no list of models passes";
  QcfDocument shortest = ReadDocument(good);
  auto& last = std::get<std::vector<QcfRecord>>(shortest.entries.back().value);
  last.resize(1);
  last[0][2].value = "";
  EXPECT_EQ(fault(WriteDocument(shortest)), "");
}

TEST(QcfFormat, CountsAreTakenOffStepByStep) {
  for (const auto& [count, hex] : {std::pair(256, "00 00 01 00"),
                                   {65535, "00 00 FF FF"},
                                   {65536, ""},
                                   {65537, "00 01 00 01"},
                                   {131072, ""},
                                   {16777216, ""},
                                   {16777217, "01 00 00 01"}}) {
    FileBytes bytes;
    const auto append = [&, n = count] { AppendCount(bytes, static_cast<std::size_t>(n)); };
    EXPECT_EQ(FailureOf(append) == kErrOverflow ? "" : ToHex(bytes), hex) << count;
  }
}

TEST(QcfFormat, AParameterIsReadInAnotherWayThanWritten) {
  const std::pair<std::int64_t, int> values[] = {
      {0, 0},      {0x19, 25},      {0x12C, 300},    {0x105, 21},    {0x100A, 266},
      {0xFF, 255}, {0x7FFF, 32767}, {0x10010, 4112}, {0x8000, 2048}, {StoredParameterValue(-251), 4085}};
  for (const auto& [stored, value] : values) EXPECT_EQ(LoadedParameterValue(stored), value) << stored;
  for (const std::int64_t stored : {0xFFFFLL, 0x8010LL, 0xFFFFFFFFLL}) {
    EXPECT_EQ(FailureOf([&] { LoadedParameterValue(stored); }), kErrOverflow) << stored;
  }
  for (const std::int64_t beyond : {65536LL, 0x18000LL}) EXPECT_EQ(ShownParameterValue(beyond), beyond);
  for (const std::int16_t value :
       {std::int16_t{-32768}, std::int16_t{-1}, std::int16_t{0}, std::int16_t{32767}}) {
    EXPECT_EQ(ShownParameterValue(StoredParameterValue(value)), value);
    EXPECT_EQ(StoredOfShown(value), StoredParameterValue(value));
  }
}

TEST(QcfFormat, NamesWhoWroteTheFile) {
  const auto items = IdentificationItems(OwnIdentification());
  ASSERT_TRUE(items);
  EXPECT_EQ(std::get<std::string>(items->back().content), MARLINSET_VERSION);
  EXPECT_EQ(IdentificationOf(*items), OwnIdentification());
  EXPECT_EQ(ListingOf(ReadDocument(Sample(2)))[0].text, "7340");
  for (const TableRow& row : TableOf("identifications")) {
    const FileBytes block = FromHex(row[0]);
    const auto known = IdentificationItems(block);
    ASSERT_EQ(known.has_value(), row[1] == "known") << row[0];
    EXPECT_EQ(IdentificationOf(known.value_or(std::vector<QcfItem>())), known ? block : FileBytes());
  }
  FileBytes longText(5 + 256, 'x');
  std::ranges::copy(FileBytes{2, 0, 0, 1, 0}, longText.begin());
  EXPECT_TRUE(IdentificationItems(longText));
  EXPECT_TRUE(IsModel("73F0"));
  for (const char* text : {"734", "73400", "734G"}) EXPECT_FALSE(IsModel(text)) << text;
}

TEST(QcfFormat, ComparesByNameWhereverAWindowStands) {
  const QcfDocument left = ReadDocument(Sample(2));
  QcfDocument right = left;
  auto& windows = std::get<std::vector<QcfRecord>>(right.entries[36].value);
  const auto differing = [&] {
    Texts names;
    for (const QcfComparison& line : Compare(left, right)) {
      if (line.difference != QcfDifference::kEqual) names.push_back(line.name + line.left + ">" + line.right);
    }
    return names;
  };
  std::swap(windows[0], windows[2]);
  EXPECT_EQ(differing(), Texts());
  windows.push_back(windows.back());
  EXPECT_THAT(differing().front(), MatchesRegex("character windows / .* \\(2\\) / Name>.*"));
  windows.resize(2);
  right.tail = {7};
  right.configurationLength = 9;
  const Texts names = differing();
  ASSERT_EQ(names.size(), 8U + 2);
  EXPECT_EQ(names[0], "character windows / Video Timecode / Name\"Video Timecode\">");
  EXPECT_EQ(names[8] + names[9], "configuration length>9tail>07");
}

}  // namespace
}  // namespace marlinset
