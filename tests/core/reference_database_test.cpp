// SPDX-License-Identifier: GPL-3.0-or-later
#include <string>
#include <vector>

#include "core/load_arrays.h"
#include "tests/support/database_tool.h"
#include "tests/support/tool_rig.h"

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

TEST(PanelSetup, TheLastRowOfAStandardGivesTheLines) {
  ToolRig rig;
  Variables& vars = rig.tool.variables;
  FrmStart& form = rig.tool.form;
  vars.DatabasePath = SHIPPED_DATABASE_FOLDER + std::string(kDatabaseFile);
  rig.tool.database.LoadArrays();
  vars.CharStyles.resize(1);
  VideoStandardRec last = vars.VideoStandards[0];
  std::int16_t next = 100;
  for (const auto number :
       {&VideoStandardRec::Vitc1Min, &VideoStandardRec::Vitc1Default1, &VideoStandardRec::Vitc1Default2,
        &VideoStandardRec::Vitc1Max, &VideoStandardRec::Vitc2Line2Min, &VideoStandardRec::Vitc2Line2Default1,
        &VideoStandardRec::Vitc2Line2Max, &VideoStandardRec::Vitc3Min, &VideoStandardRec::Vitc3Default1,
        &VideoStandardRec::Vitc3Max}) {
    last.*number = next++;
  }
  vars.VideoStandards.push_back(last);
  last.Vitc1Default1 = last.Vitc1Default2 = 103;
  last.Vitc2Line2Default1 = 106;
  last.Vitc3Default1 = 109;
  vars.VideoStandards[0] = last;
  rig.tool.panels.InitPanels();
  EXPECT_EQ(form.ComWin(2).ListIndex(), 0) << "the only one";
  const auto line = [&](int index) {
    const SpinControl& spin = index == 0 ? form.UpDown1 : form.upVitc1(index);
    EXPECT_EQ(form.tLineNumber(index).Text(), std::to_string(spin.Value()));
    return std::vector{spin.Max(), spin.Value(), spin.Min()};
  };
  EXPECT_THAT(line(0), ElementsAre(100, 101, 103));
  for (const int index : {1, 5}) EXPECT_THAT(line(index), ElementsAre(100, 102, 103));
  for (const int index : {2, 6}) EXPECT_THAT(line(index), ElementsAre(104, 105, 106));
  for (const int index : {3, 7}) EXPECT_THAT(line(index), ElementsAre(107, 108, 109));
  EXPECT_THAT(vars.VitcLineDefault, ElementsAre(102, 102, 105, 105, 108, 108));
  for (const int index : {1, 5, 2, 6, 3}) form.upVitc1(index).SetValue(form.upVitc1(index).Max());
  form.UpDown1.SetValue(103);
  rig.tool.panels.SetDefaults();
  EXPECT_THAT(line(0), ElementsAre(100, 101, 103));
  EXPECT_THAT(vars.VitcLineDefault, ElementsAre(102, 102, 104, 104, 107, 108)) << "sets the first line only";
  form.comVS.SetListIndex(1);
  EXPECT_LT(line(7)[1], 100) << "pulled, and shown so";
}

}  // namespace
}  // namespace marlinset
