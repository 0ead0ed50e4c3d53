// SPDX-License-Identifier: GPL-3.0-or-later
// Holds the rows of the shipped reference database to what the tool, units and files in the field need of
// them.
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/database_tool.h"

namespace marlinset {
namespace {

using testing::AllOf;
using testing::AnyOf;
using testing::AnyOfArray;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::IsSupersetOf;
using testing::Le;
using testing::SizeIs;
using testing::UnorderedElementsAre;

constexpr int kColumnsOfPicture = 32;
const std::set<int> kInternalClasses = {1, 25};

class ShippedDatabaseTest : public testing::Test {
 protected:
  ShippedDatabaseTest() {
    data.DatabasePath = std::string(SHIPPED_DATABASE_FOLDER) + std::string(kDatabaseFile);
    tool.database.LoadOperatingModes();
    tool.database.checkDatabase();
    tool.database.LoadArrays();
  }
  DatabaseTool tool;
  Variables& data = tool.variables;
};

template <class Rec, class Value>
auto All(const std::vector<Rec>& array, Value Rec::*field) {
  std::vector<Value> values;
  values.reserve(array.size());
  for (const Rec& rec : array) values.push_back(rec.*field);
  return values;
}

template <class Rec>
std::vector<std::string> Offered(const std::vector<Rec>& array) {
  std::vector<std::string> texts;
  for (const Rec& rec : array) {
    if (!rec.Ignore1) texts.push_back(rec.Description);
  }
  return texts;
}

/// Codes are looked up by text, and the last row of a text decides: each text must have one code.
template <class Rec>
void ExpectOneByteForEachText(const std::vector<Rec>& array, std::int16_t Rec::*code) {
  std::map<std::string, int> codes;
  for (const Rec& rec : array) {
    EXPECT_FALSE(rec.Description.empty());
    EXPECT_THAT(rec.*code, AllOf(Ge(0), Le(255))) << rec.Description;
    EXPECT_EQ(codes.emplace(rec.Description, rec.*code).first->second, rec.*code) << rec.Description;
  }
}

template <class Rec>
void ExpectDistinct(const std::vector<Rec>& values) {
  EXPECT_EQ(std::set<Rec>(values.begin(), values.end()).size(), values.size());
}

TEST_F(ShippedDatabaseTest, HasEveryStandardThatUnitsReport) {
  EXPECT_THAT(Offered(data.VideoStandards),
              UnorderedElementsAre("NTSC", "PAL", "1080p/24", "1080i/60", "1080i/50", "525i/60", "625i/50",
                                   "720p/60"));
  for (const VideoStandardRec& row : data.VideoStandards) {
    SCOPED_TRACE(row.Description);
    const auto inside = AllOf(Ge(row.Vitc1Min), Le(row.Vitc1Max));
    EXPECT_GE(row.Vitc1Min, 1);
    EXPECT_LE(row.Vitc1Max, 255) << "a line number is one byte";
    EXPECT_THAT(row.Vitc1Default1, inside);
    EXPECT_THAT(row.Vitc1Default2, inside);
    // In the modes of more lines the second and third line stand behind the first.
    EXPECT_EQ(row.Vitc2Line2Default1, row.Vitc1Default2 + 1);
    EXPECT_EQ(row.Vitc3Default1, row.Vitc1Default2 + 2);
    EXPECT_THAT(row.Vitc3Default1, inside);
    EXPECT_THAT(row.AncDefault, AllOf(Ge(row.AncMin), Le(row.AncMax)));
  }
}

TEST_F(ShippedDatabaseTest, OffersEachSizeOnceForEachStandard) {
  const std::vector<std::string> sizes = Offered(data.CharSizes);
  EXPECT_THAT(sizes, ElementsAre("Large (32 lines/field)", "Small (16 lines/field)", "Tiny (8 lines/field)"));
  ExpectOneByteForEachText(data.CharSizes, &CharSizeRec::Code);
  for (const std::string& standard : Offered(data.VideoStandards)) {
    std::vector<std::string> offered;
    for (const std::string& size : sizes) {
      SCOPED_TRACE(testing::Message() << standard << ", " << size);
      const CharMaxPosRec* last = nullptr;
      for (const CharMaxPosRec& row : data.CharMaxPositions) {
        if (row.VideoStandard != standard || row.Description != size) continue;
        last = &row;
        if (row.HardwareID == 1000 || row.HardwareID == 200) offered.push_back(row.Description);
      }
      ASSERT_NE(last, nullptr);
      EXPECT_THAT(last->HardwareID, AnyOf(1000, 200))
          << "the last row's limits count, so it must be the offered one";
      EXPECT_EQ(last->MinHorPosn, 0);
      EXPECT_EQ(last->MaxHorPosn, kColumnsOfPicture);
    }
    EXPECT_EQ(offered, sizes) << standard;
  }
  EXPECT_THAT(All(data.CharMaxPositions, &CharMaxPosRec::VideoStandard),
              Each(AnyOfArray(Offered(data.VideoStandards))));
  EXPECT_THAT(All(data.CharMaxPositions, &CharMaxPosRec::Description), Each(AnyOfArray(sizes)));
}

TEST_F(ShippedDatabaseTest, HasWindowsInTheOrderOfTheirNumbers) {
  EXPECT_GE(data.CharWindows.size(), 16U);
  EXPECT_EQ(At(data.CharWindows, 13).Name, "Text")
      << "the panel limits this row by the length of the message";
  EXPECT_EQ(At(data.CharWindows, 13).Length, kColumnsOfPicture) << "the longest message";
  EXPECT_THAT(
      All(data.CharWindows, &CharWindowRec::Name),
      IsSupersetOf({"Video Timecode", "Video User Bits", "Text", "PullDown", "Debug", "Debug2", "Debug3"}));
  ExpectDistinct(All(data.CharWindows, &CharWindowRec::Name));
  const auto numbers = All(data.CharWindows, &CharWindowRec::Number);
  EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end(), std::less_equal<>()))
      << "a loaded file is sorted by number";

  const auto all = tool.engine.OpenDatabase(data.DatabasePath)->OpenRecordset("Character Windows");
  EXPECT_GT(all->RecordCount(), static_cast<int>(data.CharWindows.size())) << "no row of a unit long gone";
}

TEST_F(ShippedDatabaseTest, PlacesWindowsInsideTheLimitsOfEveryStandardAndSize) {
  for (const CharWindowRec& window : data.CharWindows) {
    const int width = window.Length + window.FieldLength + window.SymbolLength;
    for (const CharMaxPosRec& limits : data.CharMaxPositions) {
      if (limits.HardwareID != 1000 && limits.HardwareID != 200) continue;
      SCOPED_TRACE(testing::Message()
                   << window.Name << ", " << limits.VideoStandard << ", " << limits.Description);
      const auto inPicture = AllOf(Ge(limits.MinVertPosn), Le(std::min<int>(limits.MaxVertPosn, 255)));
      EXPECT_THAT(window.Top, inPicture);
      EXPECT_THAT(window.DefaultVertPosn, inPicture);
      const auto inLine = AllOf(Ge(limits.MinHorPosn), Le(limits.MaxHorPosn - width));
      EXPECT_THAT(window.Left, inLine);
      EXPECT_THAT(window.DefaultHorPosn, inLine);
    }
    EXPECT_TRUE(window.SymbolLength > 0 || !window.DefaultSymbolOnOff) << window.Name;
    EXPECT_TRUE(window.FieldLength > 0 || !window.DefaultFieldOnOff) << window.Name;
  }
}

TEST_F(ShippedDatabaseTest, HasTheModesThatFilesName) {
  EXPECT_THAT(All(data.OperatingModes, &OperatingModeRec::Name),
              IsSupersetOf({"HD Video Downconvert", "Bi-Phase Accuracy Test", "KeyKode Accuracy Test",
                            "Multi-Camera Episodic", "Pre-stripe Timecode", "Test"}));
  auto words = All(data.OperatingModes, &OperatingModeRec::Name);
  for (const OperatingModeRec& mode : data.OperatingModes) words.push_back(mode.ModeId);
  ExpectDistinct(words);
}

/// What a mode makes of its routing panels: the number of lines chosen at first and the list of each box.
struct Routing {
  int lines = 0;
  std::set<int> choices;
  std::map<std::string, std::vector<std::string>> boxes;
};

Routing RoutingOf(const Variables& data, const std::string& mode) {
  Routing routing;
  for (const TimeCodeAssignmentRec& row : data.TimeCodeAssignments) {
    if (row.Name != mode || row.Ignore1) continue;
    routing.lines = row.VITCMode;
    routing.choices.insert(row.VITCMode);
    for (const CodeSourceRec& source : data.CodeSources) {
      if (source.FieldValue == row.FieldValue) routing.boxes[row.FieldName].push_back(source.Description);
    }
  }
  return routing;
}

TEST_F(ShippedDatabaseTest, RoutesTimeCodeInEveryMode) {
  std::set<int> linesUsed;
  for (const std::string& mode : All(data.OperatingModes, &OperatingModeRec::Name)) {
    SCOPED_TRACE(mode);
    const Routing routing = RoutingOf(data, mode);
    linesUsed.insert(routing.lines);
    for (const int lines : routing.choices) {
      EXPECT_THAT(lines, AllOf(Ge(1), Le(3)));
      std::vector<std::string> needed = {"VTRT", "VTRU", "LTC1GT", "LTC1GU", "VITC1T", "VITC1U"};
      if (lines >= 2) needed.emplace_back("VITC2");
      if (lines >= 3) needed.insert(needed.end(), {"VITC3T", "VITC3U"});
      for (const std::string& box : needed)
        EXPECT_TRUE(routing.boxes.contains(box)) << "nothing to choose in " << box;
    }
    for (const auto& [box, list] : routing.boxes) ExpectDistinct(list);
  }
  EXPECT_THAT(linesUsed, UnorderedElementsAre(1, 2, 3));
  const Routing usual = RoutingOf(data, std::string(kDefaultOperatingMode));
  EXPECT_EQ(usual.lines, 1);
  EXPECT_THAT(usual.choices, UnorderedElementsAre(1, 2, 3));
}

TEST_F(ShippedDatabaseTest, KnowsTheListOfEveryAssignment) {
  const auto lists = All(data.CodeSources, &CodeSourceRec::FieldValue);
  for (const TimeCodeAssignmentRec& row : data.TimeCodeAssignments) {
    EXPECT_THAT(lists, Contains(row.FieldValue)) << row.Name << ", " << row.FieldName;
    EXPECT_THAT(row.FieldName, AnyOf("VTRT", "VTRU", "LTC1GT", "LTC1GU", "VITC1T", "VITC1U", "VITC2",
                                     "VITC3T", "VITC3U", "ATRT", "ATRU", "Edge Style", "LOGINK", "LOGKK"));
  }
  const auto ignored = [](const TimeCodeAssignmentRec& row) { return row.Ignore1; };
  EXPECT_TRUE(std::any_of(data.TimeCodeAssignments.begin(), data.TimeCodeAssignments.end(), ignored));
  const auto all = tool.engine.OpenDatabase(data.DatabasePath)->OpenRecordset("Time Code Assignments");
  EXPECT_GT(all->RecordCount(), static_cast<int>(data.TimeCodeAssignments.size()));
}

TEST_F(ShippedDatabaseTest, KeepsTheSourcesThatFilesName) {
  ExpectOneByteForEachText(data.CodeSources, &CodeSourceRec::GenNumber);
  // What the names in old files are turned into must be found in the very box that they are for.
  const auto boxes = RoutingOf(data, std::string(kDefaultOperatingMode)).boxes;
  EXPECT_THAT(boxes.at("VTRT"), IsSupersetOf({"Video LTC Reader Time", "Output Video Recorder Time"}));
  EXPECT_THAT(boxes.at("VTRU"), IsSupersetOf({"Video LTC Reader User Bits", "Video Recorder User Bits"}));
  EXPECT_THAT(boxes.at("LTC1GT"),
              IsSupersetOf({"Video LTC Reader Time", "Video Recorder Time", "Output Video Recorder Time"}));
  EXPECT_THAT(boxes.at("LTC1GU"), IsSupersetOf({"Video LTC Reader User Bits", "Video Recorder User Bits"}));
  EXPECT_THAT(boxes.at("VITC1T"), IsSupersetOf({"Video LTC Reader Time", "Output Video Recorder Time"}));
  EXPECT_THAT(boxes.at("VITC1U"), IsSupersetOf({"Video LTC Reader User Bits", "Video Recorder User Bits",
                                                "Input Video Recorder Time"}));
}

TEST_F(ShippedDatabaseTest, OffersTheListsOfThePanels) {
  ExpectOneByteForEachText(data.CharStyles, &CharStyleRec::Code);
  ExpectOneByteForEachText(data.SlateModes, &CodedItemRec::Code);
  ExpectOneByteForEachText(data.DownConverterModes, &CodedItemRec::Code);
  ExpectOneByteForEachText(data.DownConverterProcessModes, &DownConvProcessRec::Code);
  ExpectOneByteForEachText(data.DownConverterFilters, &OrderedCodeRec::Code);
  ExpectOneByteForEachText(data.SdiProgramOutputs, &OrderedCodeRec::Code);
  EXPECT_THAT(Offered(data.CharStyles), SizeIs(Ge(2U)));
  EXPECT_THAT(Offered(data.SlateModes),
              IsSupersetOf({"On at Event Start for Duration", "On Between Events and for Duration"}));
  EXPECT_THAT(Offered(data.DownConverterModes), SizeIs(Ge(2U)));
  EXPECT_THAT(Offered(data.SdiProgramOutputs), SizeIs(Ge(2U)));
  for (const std::string& standard : Offered(data.VideoStandards)) {
    const auto fits = [&](const DownConvProcessRec& row) {
      return row.VideoStandard == standard && !row.Ignore1;
    };
    EXPECT_TRUE(
        std::any_of(data.DownConverterProcessModes.begin(), data.DownConverterProcessModes.end(), fits))
        << standard;
  }
}

TEST_F(ShippedDatabaseTest, HasATenthFilter) {
  const auto filters = Offered(data.DownConverterFilters);
  EXPECT_THAT(filters, SizeIs(Ge(10U))) << "the tenth is the default of both boxes";
  EXPECT_THAT(filters, testing::Not(Contains("Custom")));
  const auto orders = All(data.DownConverterFilters, &OrderedCodeRec::Order);
  EXPECT_TRUE(std::is_sorted(orders.begin(), orders.end(), std::less_equal<>())) << "two of one rank";
  const auto all = tool.engine.OpenDatabase(data.DatabasePath)->OpenRecordset("Down Converter Filters");
  EXPECT_EQ(all->RecordCount(), static_cast<int>(data.DownConverterFilters.size()) + 1);
}

TEST_F(ShippedDatabaseTest, HasParametersThatSurviveAFile) {
  int shown = 0;
  std::vector<std::pair<int, int>> keys;
  for (const SystemParameterRec& row : data.SystemParameters) {
    SCOPED_TRACE(row.Description);
    keys.emplace_back(row.Class, row.Parameter);
    if (!kInternalClasses.contains(row.Class)) ++shown;
    EXPECT_THAT(row.Class, AllOf(Ge(0), Le(255)));
    EXPECT_THAT(row.Parameter, AllOf(Ge(0), Le(255)));
    EXPECT_FALSE(row.Class == 0 && row.Parameter == 0) << "switches the selection of the video standard";
    EXPECT_GE(row.Value, 0);
    EXPECT_TRUE(row.Value <= 255 || row.Value % 256 >= 16) << row.Value << " comes back wrong from a file";
  }
  EXPECT_GE(shown, 30);
  ExpectDistinct(keys);
  ExpectDistinct(All(data.SystemParameters, &SystemParameterRec::Description));
  for (const int internal : kInternalClasses) {
    EXPECT_THAT(All(data.SystemParameters, &SystemParameterRec::Class), Contains(internal));
  }

  const auto deleted = tool.engine.OpenDatabase(data.DatabasePath)->OpenRecordset("Deleted Parameters");
  ASSERT_GT(deleted->RecordCount(), 0) << "loading a file needs at least one";
  for (int i = 0; i < deleted->RecordCount(); ++i, deleted->MoveNext()) {
    const std::pair<int, int> key(Int16Of(deleted->Fields("Class")), Int16Of(deleted->Fields("Parameter")));
    EXPECT_THAT(keys, testing::Not(Contains(key))) << TextOf(deleted->Fields("Description"));
  }
}

TEST_F(ShippedDatabaseTest, HasHelpAndAVersion) {
  EXPECT_FALSE(data.HelpMessages.empty());
  EXPECT_FALSE(tool.database.DatabaseVersion().empty());
  EXPECT_TRUE(tool.dialogs.shown.empty());
}

}  // namespace
}  // namespace marlinset
