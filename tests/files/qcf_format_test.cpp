// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/qcf_identification.h"
#include "files/qcf_listing.h"
#include "files/qcf_reader.h"
#include "files/qcf_writer.h"
#include "tests/files/sample.h"
#include "tests/support/database_tool.h"
#include "tests/support/hex.h"

namespace marlinset {
namespace {

/// Bytes of the tail of sample 1, and offset of its identification block.
constexpr std::size_t kTail = 5;
constexpr std::size_t kIdentification = 10;

std::vector<std::string> ListingTexts(const FileBytes& bytes) {
  std::vector<std::string> texts;
  for (const QcfLine& line : ListingOf(ReadDocument(bytes))) texts.push_back(line.name + ": " + line.text);
  return texts;
}

int FaultOf(const FileBytes& bytes) {
  try {
    ReadDocument(bytes);
  } catch (const QcfError& error) {
    return static_cast<int>(error.Which());
  } catch (const RuntimeError&) {
    return -1;
  }
  return -2;
}
constexpr int kHeader = static_cast<int>(QcfError::Fault::kHeader);
constexpr int kNoModel = static_cast<int>(QcfError::Fault::kNoModel);
constexpr int kDamaged = -1;

TEST(QcfFormat, ReadsTheSamplesAsTheirListingsSay) {
  const auto two = ListingTexts(Sample(2));
  const std::vector<std::string> wanted = {
      "format version: 2",
      "operating mode: \"Multi-Camera Episodic\"",
      "VITC selection: 2",
      "characters on: 0",
      "output VITC1 user bits: \"User Bit Generator\"",
      "VITC1 second line: 13",
      "VITC2 first line: 20",
      "output VITC3 user bits: \"\"",
      "VITC3 second line: 17",
      "white flag line: 7",
      "slate duration: 300",
      "text message: \"Take 3 é\"",
      "horizontal filter: \"Sharp\"",
      "SDI program output: \"SD Clean\"",
      "character windows / Video Timecode / Double Height: 1",
      "character windows / Video Timecode / Vertical: 100",
      "character windows /  TEXT  / Slate: 1",
      "system parameters / 7.1 / Value: 300",
      "system parameters / 25.1 / Value: 261",
      "system parameters / 3.2 / Description: \"LTC Output Level (mV)\""};
  EXPECT_THAT(two, ::testing::IsSupersetOf(wanted));
  EXPECT_EQ(two.front(), "identification / models: 7340");
  EXPECT_EQ(two.size(), 3U + 36 + 3 * 8 + 4 * 4);
  const auto one = ListingTexts(Sample(1));
  EXPECT_EQ(one.size(), 1U + 32 + 2 * 7 + 4 + 1);
  EXPECT_EQ(one.front(), "identification: 010000000207030200070304000200000004546F6F6CAAFF00000003010203AB");
  EXPECT_EQ(one[32], "down converter mode: \"16:9 Anamorphic\"");
  EXPECT_EQ(one[one.size() - 2], "system parameters / 2.0 / Value: 4106");
  EXPECT_EQ(one.back(), "tail: 0000514346");
}

TEST(QcfFormat, WritesWhatItReadByteForByte) {
  for (const int version : {1, 2}) EXPECT_EQ(WriteDocument(ReadDocument(Sample(version))), Sample(version));
  EXPECT_EQ(ToHex(ReadDocument(Sample(1)).tail), "00 00 51 43 46");
}

TEST(QcfFormat, TheExampleOfTheDocumentIsAFile) {
  std::ifstream page(SAMPLE_FOLDER "../../docs/qcf-format.md");
  FileBytes bytes;
  constexpr std::size_t kOffset = 5;
  constexpr std::size_t kColumn = 48;
  bool inExample = false;
  for (std::string line; std::getline(page, line);) {
    inExample = inExample || line == "## An example";
    if (!inExample || line.size() < kOffset + kColumn || line[3] != ' ' || line[4] != ' ') continue;
    EXPECT_EQ(std::stoul(line), bytes.size()) << line;
    const FileBytes part = FromHex(line.substr(kOffset, kColumn));
    bytes.insert(bytes.end(), part.begin(), part.end());
  }
  const QcfDocument document = ReadDocument(bytes);
  EXPECT_EQ(ListingOf(document).back().text, "300");
  EXPECT_FALSE(document.configurationLength);
  EXPECT_TRUE(document.tail.empty());
}

TEST(QcfFormat, AFileCutAnywhereIsDamaged) {
  for (const int version : {1, 2}) {
    const FileBytes whole = Sample(version);
    const std::size_t end = version == 1 ? whole.size() - kTail : whole.size();
    for (std::size_t length = 0; length < end; ++length) {
      const FileBytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
      EXPECT_EQ(FaultOf(cut), kDamaged) << version << " cut at " << length;
    }
  }
}

TEST(QcfFormat, AFlippedByteIsRefusedOrKept) {
  for (const int version : {1, 2}) {
    for (const unsigned flip : {0x01U, 0x80U, 0xFFU}) {
      FileBytes bytes = Sample(version);
      for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<std::uint8_t>(bytes[i] ^ flip);
        try {
          EXPECT_EQ(WriteDocument(ReadDocument(bytes)), bytes) << i;
        } catch (const RuntimeError&) {
          // Refused: nothing else may come out of a damaged file.
        }
        bytes[i] = static_cast<std::uint8_t>(bytes[i] ^ flip);
      }
    }
  }
}

TEST(QcfFormat, TellsOtherFilesFromDamagedOnes) {
  const FileBytes good = Sample(2);
  const auto with = [&](std::size_t at, std::uint8_t byte) {
    FileBytes bytes = good;
    bytes[at] = byte;
    return bytes;
  };
  const std::size_t version = kIdentification + 35 + 4;
  EXPECT_EQ(FaultOf({0x51}), kDamaged) << "short but agreeing";
  EXPECT_EQ(FaultOf({0x51, 0x44}), kHeader);
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(FaultOf(with(i, 0x7F)), kHeader) << i;
  EXPECT_EQ(FaultOf(with(version + 3, 3)), kHeader);
  EXPECT_EQ(FaultOf(with(version + 3, 0)), kHeader);
  EXPECT_EQ(FaultOf(with(kIdentification + 6, 2)), kNoModel) << "a 7240";
  EXPECT_EQ(FaultOf(with(kIdentification + 4, 0)), kNoModel) << "no models at all";
  EXPECT_EQ(FaultOf(with(6, 1)), kDamaged) << "a block longer than the file";
  EXPECT_EQ(FaultOf(with(version - 4, 1)), kDamaged);
  EXPECT_EQ(FaultOf(with(kIdentification + 10, 0xFF)), kDamaged) << "a length that nobody can count to";
  EXPECT_EQ(ReadDocument(with(version, 9)).entries.size(), 38U) << "only the last byte of the version counts";
  FileBytes unnamed = with(kIdentification, kQcfReserved);
  unnamed[kIdentification + 4] = 4;
  EXPECT_EQ(ReadDocument(unnamed).entries.size(), 38U) << "no list of models passes";
  EXPECT_EQ(FaultOf(with(Behind(good, "SD Clean") + 3, 0)), kDamaged) << "no windows";
  EXPECT_EQ(FaultOf(with(Behind(good, "SD Clean") + 1, 0x7F)), kDamaged) << "more windows than bytes";
}

TEST(QcfFormat, CountsAreTakenOffStepByStep) {
  const std::pair<std::size_t, const char*> counts[] = {
      {0, "00 00 00 00"},     {255, "00 00 00 FF"},    {256, "00 00 01 00"},      {65535, "00 00 FF FF"},
      {65537, "00 01 00 01"}, {131071, "00 01 FF FF"}, {16777215, "00 FF FF FF"}, {16777217, "01 00 00 01"}};
  for (const auto& [count, hex] : counts) {
    FileBytes bytes;
    AppendCount(bytes, count);
    EXPECT_EQ(ToHex(bytes), hex) << count;
  }
  for (const std::size_t count : {65536UL, 131072UL, 16777216UL, 33554432UL}) {
    FileBytes bytes;
    EXPECT_EQ(FailureOf([&] { AppendCount(bytes, count); }), kErrOverflow) << count;
  }
}

TEST(QcfFormat, AParameterIsReadInAnotherWayThanWritten) {
  const std::pair<std::int64_t, int> values[] = {
      {0x00000019, 25},  {0x0000012C, 300},   {0x00000105, 21},   {0x0000100A, 266},
      {0x000000FF, 255}, {0x00007FFF, 32767}, {0x00010010, 4112}, {0, 0}};
  for (const auto& [stored, value] : values) EXPECT_EQ(LoadedParameterValue(stored), value) << stored;
  EXPECT_EQ(StoredParameterValue(-1), 0xFFFF);
  EXPECT_EQ(LoadedParameterValue(StoredParameterValue(-251)), 4085);
  for (const std::int64_t stored : {0xFFFFLL, 0x8000LL, 0x8010LL, 0xFFFFFFFFLL}) {
    EXPECT_EQ(FailureOf([&] { LoadedParameterValue(stored); }), stored == 0x8000 ? 0 : kErrOverflow)
        << stored;
  }
}

TEST(QcfFormat, NamesWhoWroteTheFile) {
  const auto items = IdentificationItems(OwnIdentification());
  ASSERT_TRUE(items);
  ASSERT_EQ(items->size(), 3U);
  EXPECT_EQ(std::get<std::vector<std::string>>((*items)[0].content), std::vector<std::string>{"7340"});
  EXPECT_EQ(std::get<std::string>((*items)[2].content), MARLINSET_VERSION);
  EXPECT_EQ(IdentificationOf(*items), OwnIdentification());
  EXPECT_FALSE(IdentificationItems(ReadDocument(Sample(1)).identification)) << "stray bytes stand in it";
}

TEST(QcfFormat, ComparesByNameWhereverAWindowStands) {
  QcfDocument left = ReadDocument(Sample(2));
  QcfDocument right = left;
  auto& windows = std::get<std::vector<QcfRecord>>(right.entries[36].value);
  std::swap(windows[0], windows[2]);
  const auto differing = [&] {
    std::vector<std::string> names;
    for (const QcfComparison& line : Compare(left, right)) {
      if (line.difference != QcfDifference::kEqual) names.push_back(line.name + line.left + ">" + line.right);
    }
    return names;
  };
  EXPECT_TRUE(differing().empty());
  right.entries[2].value = "PAL";
  windows.pop_back();
  const auto names = differing();
  ASSERT_EQ(names.size(), 1U + 8);
  EXPECT_EQ(names[0], "video standard\"1080i/50\">\"PAL\"");
  EXPECT_EQ(names[1], "character windows / Video Timecode / Name\"Video Timecode\">");
  std::swap(left, right);
  EXPECT_EQ(differing().back(), "character windows / Video Timecode / Horizontal>5");
  std::swap(left, right);
  right.tail = {7};
  right.identification.back() = '9';
  EXPECT_THAT(differing().front(), ::testing::StartsWith("identification / version"));
  EXPECT_EQ(differing().back(), "tail>07");
  right = left;
  auto& twice = std::get<std::vector<QcfRecord>>(right.entries[36].value);
  twice.push_back(twice.front());
  EXPECT_THAT(differing().front(), ::testing::MatchesRegex("character windows / .* \\(2\\) / Name>.*"));
  right.tail.clear();
  // Names that look like those of other records do not mix them up.
  auto& others = std::get<std::vector<QcfRecord>>(right.entries[36].value);
  others.assign(3, QcfRecord(others[0]));
  others[0][0].value = "A (2)";
  others[1][0].value = others[2][0].value = "A";
  others[2][6].value = std::int64_t{7};
  left = right;
  EXPECT_TRUE(differing().empty());
}

}  // namespace
}  // namespace marlinset
