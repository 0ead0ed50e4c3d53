// SPDX-License-Identifier: GPL-3.0-or-later

#include <string>
#include <vector>

#include "core/load_arrays.h"
#include "tests/support/database_tool.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

TEST(LoadArrays, TakesTheLimitsOfAllVitcLinesFromTheFirstLine) {
  DatabaseTool tool;
  tool.Sql(
      "CREATE TABLE [Video Standards] (Description, Ignore1, [VITC1 Line1Num Min], [VITC1 Line1Num Max],"
      " [VITC1 Line1Num Default1], [VITC1 Line1Num Default2], [VITC2 Line1Num Min],"
      " [VITC2 Line2Num Default1], [VITC3 Line1Num Default1]);"
      "INSERT INTO [Video Standards] VALUES ('PAL', -1, 6, 22, 11, 19, 99, 20, 21)");
  tool.database.Load(&Variables::VideoStandards);
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
  tool.database.Load(&Variables::SystemParameters);
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
  tool.database.Load(&Variables::CharWindows);
  tool.database.Load(&Variables::TimeCodeAssignments);
  std::vector<std::string> names;
  for (const CharWindowRec& row : tool.variables.CharWindows) names.push_back(row.Name);
  for (const TimeCodeAssignmentRec& row : tool.variables.TimeCodeAssignments) names.push_back(row.FieldName);
  EXPECT_THAT(names, ElementsAre("Text", "Debug", "VTRT", "VITC2", "VTRU"));
  tool.Sql("ALTER TABLE [Character Windows] DROP COLUMN Device");
  tool.database.Load(&Variables::CharWindows);
  EXPECT_EQ(FailureOf([&] { UBound(tool.variables.CharWindows); }), kErrSubscript);
}

}  // namespace
}  // namespace marlinset
