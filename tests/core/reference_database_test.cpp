// SPDX-License-Identifier: GPL-3.0-or-later
// How tables are read, and what must hold between those of the shipped database; rules of one row are held by
// its schema.
#include <gmock/gmock.h>

#include <map>
#include <string>
#include <vector>

#include "core/load_arrays.h"
#include "tests/support/database_tool.h"

namespace marlinset {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;
using testing::UnorderedElementsAre;

TEST(LoadArrays, TakesTheLimitsOfAllVitcLinesFromTheFirstLine) {
  DatabaseTool tool;
  tool.Sql(
      "CREATE TABLE [Video Standards] (Description, Ignore1, [VITC1 Line1Num Min], [VITC1 Line1Num Max],"
      " [VITC1 Line1Num Default1], [VITC1 Line1Num Default2], [VITC2 Line1Num Min],"
      " [VITC2 Line2Num Default1], [VITC3 Line1Num Default1]);"
      "INSERT INTO [Video Standards] VALUES ('PAL', -1, 6, 22, 11, 19, 99, 20, 21)");
  tool.database.LoadVideoStandards();
  const VideoStandardRec& pal = tool.variables.VideoStandards.at(0);
  EXPECT_TRUE(pal.Ignore1) << "rows are loaded whether they are offered or not";
  EXPECT_THAT((std::vector{pal.Vitc1Min, pal.Vitc2Line2Min, pal.Vitc3Min, pal.Vitc1Max, pal.Vitc2Line2Max,
                           pal.Vitc3Max, pal.Vitc1Default1, pal.Vitc1Default2, pal.Vitc2Line2Default1,
                           pal.Vitc3Default1}),
              ElementsAre(6, 6, 6, 22, 22, 22, 11, 19, 20, 21));
}

TEST(LoadArrays, CarriesOnPastWhatCannotBeRead) {
  DatabaseTool tool;
  tool.Sql(
      "CREATE TABLE [System Parameters] (Class, Description, Value);"
      "INSERT INTO [System Parameters] VALUES (2, 'Delay', 70000), (NULL, NULL, 5), ('four', 'Level', '16'),"
      " (3, 'Edge', 2.5)");
  tool.database.LoadSystemParameters();
  std::vector<std::tuple<int, int, std::string, int>> rows;
  for (const SystemParameterRec& row : tool.variables.SystemParameters) {
    rows.emplace_back(row.Class, row.Parameter, row.Description, row.Value);
  }
  EXPECT_EQ(rows, (decltype(rows){{2, 0, "Delay", 0}, {0, 0, "", 5}, {0, 0, "Level", 16}, {3, 0, "Edge", 2}}))
      << "numbers of 16 bits, rounded to even, as texts too";
}

TEST(LoadArrays, PassesOverRowsWithoutADevice) {
  DatabaseTool tool;
  tool.Sql(
      "CREATE TABLE [Character Windows] (Device, Name);"
      "INSERT INTO [Character Windows] VALUES (0, 'Old'), (7340, 'Text'), (NULL, 'Null'), ('0', 'Old text'),"
      " (-1, 'Debug'), ('none', 'Word');"
      "CREATE TABLE [Time Code Assignments] (Device, [Field Name]);"
      "INSERT INTO [Time Code Assignments] VALUES (' 0', 'a'), ('7340', 'VTRT'), ('0.0 old', 'b'), ('', 'c'),"
      " (NULL, 'd'), (' 7340Q', 'VITC2'), (0, 'e'), ('Q', 'f'), (1, 'VTRU')");
  tool.database.LoadCharWindows();
  tool.database.LoadTimeCodeAssignments();
  std::vector<std::string> names;
  for (const CharWindowRec& row : tool.variables.CharWindows) names.push_back(row.Name);
  for (const TimeCodeAssignmentRec& row : tool.variables.TimeCodeAssignments) names.push_back(row.FieldName);
  EXPECT_THAT(names, ElementsAre("Text", "Debug", "VTRT", "VITC2", "VTRU"));
  tool.Sql("ALTER TABLE [Character Windows] DROP COLUMN Device");
  tool.database.LoadCharWindows();
  EXPECT_EQ(FailureOf([&] { UBound(tool.variables.CharWindows); }), kErrSubscript);
}

class ShippedDatabase : public testing::Test {
 protected:
  ShippedDatabase() {
    data.DatabasePath = std::string(SHIPPED_DATABASE_FOLDER) + std::string(kDatabaseFile);
    tool.database.LoadOperatingModes();
    tool.database.LoadArrays();
  }
  DatabaseTool tool;
  Variables& data = tool.variables;
};

template <class Rec>
std::vector<std::string> Offered(const std::vector<Rec>& array) {
  std::vector<std::string> texts;
  for (const Rec& rec : array) {
    if (!rec.Ignore1) texts.push_back(rec.Description);
  }
  return texts;
}

TEST_F(ShippedDatabase, HasTheTextsThatUnitsReportAndFilesHold) {
  EXPECT_THAT(Offered(data.VideoStandards),
              UnorderedElementsAre("NTSC", "PAL", "1080p/24", "1080i/60", "1080i/50", "525i/60", "625i/50",
                                   "720p/60"));
  EXPECT_THAT(Offered(data.CharSizes),
              ElementsAre("Large (32 lines/field)", "Small (16 lines/field)", "Tiny (8 lines/field)"));
  EXPECT_THAT(Offered(data.SlateModes),
              IsSupersetOf({"On at Event Start for Duration", "On Between Events and for Duration"}));
  std::vector<std::string> modes;
  for (const OperatingModeRec& mode : data.OperatingModes) modes.push_back(mode.Name);
  EXPECT_THAT(modes, IsSupersetOf({"HD Video Downconvert", "Bi-Phase Accuracy Test", "KeyKode Accuracy Test",
                                   "Multi-Camera Episodic", "Pre-stripe Timecode", "Test"}));
  EXPECT_GE(Offered(data.DownConverterFilters).size(), 10U) << "the tenth is the default of both boxes";
  EXPECT_THAT(Offered(data.DownConverterFilters), Not(Contains("Custom")));
}

/// Codes are looked up by text, and the last row of a text decides: each text must have one code.
TEST_F(ShippedDatabase, HasOneCodeForEachText) {
  std::map<std::string, int> codes;
  for (const CodeSourceRec& row : data.CodeSources) {
    EXPECT_EQ(codes.emplace(row.Description, row.GenNumber).first->second, row.GenNumber);
  }
  codes.clear();
  for (const DownConvProcessRec& row : data.DownConverterProcessModes) {
    EXPECT_EQ(codes.emplace(row.Description, row.Code).first->second, row.Code);
  }
}

TEST_F(ShippedDatabase, PlacesItsWindowsInsideTheLimitsOfEveryStandardAndSize) {
  for (const std::string& standard : Offered(data.VideoStandards)) {
    for (const std::string& size : Offered(data.CharSizes)) {
      SCOPED_TRACE(standard + ", " + size);
      CharMaxPosRec limits;
      int offered = 0;
      for (const CharMaxPosRec& row : data.CharMaxPositions) {
        if (row.VideoStandard != standard || row.Description != size) continue;
        limits = row;
        if (row.HardwareID == 1000 || row.HardwareID == 200) ++offered;
      }
      EXPECT_EQ(offered, 1);
      EXPECT_TRUE(limits.HardwareID == 1000 || limits.HardwareID == 200) << "the last row's limits count";
      for (const CharWindowRec& window : data.CharWindows) {
        const int right = window.DefaultHorPosn + window.Length + window.FieldLength + window.SymbolLength;
        EXPECT_TRUE(limits.MinVertPosn <= window.DefaultVertPosn &&
                    window.DefaultVertPosn <= limits.MaxVertPosn &&
                    limits.MinHorPosn <= window.DefaultHorPosn && right <= limits.MaxHorPosn)
            << window.Name;
      }
    }
  }
}

TEST_F(ShippedDatabase, HasWindowsInTheOrderOfTheirNumbers) {
  EXPECT_EQ(data.CharWindows.at(13).Name, "Text") << "the panel limits this row by the length of the message";
  for (std::size_t row = 1; row < data.CharWindows.size(); ++row) {
    EXPECT_LT(data.CharWindows[row - 1].Number, data.CharWindows[row].Number) << "a loaded file is sorted so";
  }
}

TEST_F(ShippedDatabase, HasNoParameterThatUnitsLost) {
  const auto deleted = tool.engine.OpenDatabase(data.DatabasePath)->OpenRecordset("Deleted Parameters");
  ASSERT_GT(deleted->RecordCount(), 0) << "loading a file needs at least one";
  for (int i = 0; i < deleted->RecordCount(); ++i, deleted->MoveNext()) {
    for (const SystemParameterRec& row : data.SystemParameters) {
      EXPECT_FALSE(row.Class == Int16Of(deleted->Fields("Class")) &&
                   row.Parameter == Int16Of(deleted->Fields("Parameter")))
          << row.Description;
    }
  }
}

}  // namespace
}  // namespace marlinset
