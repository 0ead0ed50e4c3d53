// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/load_arrays.h"

#include <gmock/gmock.h>

#include "tests/support/database_tool.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

class LoadArraysTest : public testing::Test {
 protected:
  DatabaseTool tool;
  Variables& variables = tool.variables;
};

TEST_F(LoadArraysTest, TakesTheLimitsOfAllVitcLinesFromTheFirstLine) {
  tool.Sql(
      "CREATE TABLE [Video Standards] (Description, Code, [Order], Ignore1, [Frame Rate], [VITC1 Line1Num "
      "Min],"
      " [VITC1 Line1Num Max], [VITC1 Line1Num Default1], [VITC1 Line1Num Default2], [VITC2 Line1Num Min],"
      " [VITC2 Line2Num Default1], [VITC2 Line2Num Default2], [VITC3 Line1Num Default1], [ANC LineNum "
      "Default]);"
      "INSERT INTO [Video Standards] VALUES ('PAL', 2.5, 7, -1, 25, 6, 22, 11, 19, 99, 20, 21, 22, 9)");
  tool.database.LoadVideoStandards();
  ASSERT_THAT(variables.VideoStandards, SizeIs(1));
  const VideoStandardRec& pal = variables.VideoStandards[0];
  EXPECT_EQ(pal.Description, "PAL");
  EXPECT_EQ(pal.Code, 2.5);
  EXPECT_TRUE(pal.Ignore1) << "rows are loaded whether they are offered or not";
  EXPECT_THAT((std::vector{pal.Vitc1Min, pal.Vitc2Line1Min, pal.Vitc2Line2Min, pal.Vitc3Min}),
              ElementsAre(6, 6, 6, 6));
  EXPECT_THAT((std::vector{pal.Vitc1Max, pal.Vitc2Line1Max, pal.Vitc2Line2Max, pal.Vitc3Max}),
              ElementsAre(22, 22, 22, 22));
  EXPECT_THAT((std::vector{pal.Vitc1Default1, pal.Vitc1Default2, pal.Vitc2Line2Default1,
                           pal.Vitc2Line2Default2, pal.Vitc3Default1, pal.AncDefault}),
              ElementsAre(11, 19, 20, 21, 22, 9));
}

TEST_F(LoadArraysTest, CarriesOnPastWhatCannotBeRead) {
  tool.Sql(
      "CREATE TABLE [System Parameters] (Class, Description, Value);"
      "INSERT INTO [System Parameters] VALUES (2, 'Delay', 70000), (NULL, NULL, 5), ('four', 'Level', '16'), "
      "(3, 'Edge', "
      "2.5)");
  tool.database.LoadSystemParameters();
  ASSERT_THAT(variables.SystemParameters, SizeIs(4));
  const auto values = [this](int row) {
    const SystemParameterRec& rec = At(variables.SystemParameters, row);
    return std::make_tuple(rec.Class, rec.Parameter, rec.Description, rec.Value);
  };
  EXPECT_EQ(values(0), std::make_tuple(2, 0, "Delay", 0)) << "too large for 16 bits";
  EXPECT_EQ(values(1), std::make_tuple(0, 0, "", 5));
  EXPECT_EQ(values(2), std::make_tuple(0, 0, "Level", 16)) << "a text that is no number, one that is";
  EXPECT_EQ(values(3), std::make_tuple(3, 0, "Edge", 2)) << "rounded to even";
}

TEST_F(LoadArraysTest, PassesOverWindowsWithoutADevice) {
  tool.Sql(
      "CREATE TABLE [Character Windows] (Device, Name, Number, [Default on/off], [Double Height]);"
      "INSERT INTO [Character Windows] VALUES (0, 'Old', 1, 1, 1), (7340, 'Text', 2, 1, 0), (NULL, 'Null', "
      "3, 1, 1),"
      " ('0', 'Old text', 4, 1, 1), (-1, 'Debug', 5, 0, -1), ('none', 'Word', 6, 1, 1)");
  tool.database.LoadCharWindows();
  EXPECT_THAT(variables.CharWindows,
              ElementsAre(Field(&CharWindowRec::Name, "Text"), Field(&CharWindowRec::Name, "Debug")));
  EXPECT_EQ(variables.CharWindows[1].Number, 5);
  EXPECT_TRUE(variables.CharWindows[1].DoubleHeight);

  tool.Sql("ALTER TABLE [Character Windows] DROP COLUMN Device");
  tool.database.LoadCharWindows();
  EXPECT_THAT(variables.CharWindows, IsEmpty());
}

TEST_F(LoadArraysTest, ReadsTheDeviceOfAnAssignmentAsTheNumberItBeginsWith) {
  tool.Sql(
      "CREATE TABLE [Time Code Assignments] (Device, [Field Name], Ignore1);"
      "INSERT INTO [Time Code Assignments] VALUES (' 0', 'a', 0), ('7340', 'VTRT', 0), ('0.0 old', 'b', 0),"
      " ('', 'c', 0), (NULL, 'd', 0), (' 7340Q', 'VITC2', 1), (0, 'e', 0), ('Q', 'f', 0), (1, 'VTRU', 0)");
  tool.database.LoadTimeCodeAssignments();
  std::vector<std::string> names;
  for (const auto& row : variables.TimeCodeAssignments) names.push_back(row.FieldName);
  EXPECT_THAT(names, ElementsAre("VTRT", "VITC2", "VTRU"));
}

TEST_F(LoadArraysTest, LeavesCustomOutOfTheFilters) {
  tool.Sql(
      "CREATE TABLE [Down Converter Filters] ([Order], Description, Code, Ignore1);"
      "INSERT INTO [Down Converter Filters] VALUES (9, 'Sharp', 4, 0), (1, 'Custom', 5, 0), (2, 'Soft', 6, "
      "1)");
  tool.database.LoadDownConverterFilters();
  EXPECT_THAT(variables.DownConverterFilters, ElementsAre(Field(&OrderedCodeRec::Description, "Soft"),
                                                          Field(&OrderedCodeRec::Description, "Sharp")));
}

TEST_F(LoadArraysTest, LeavesTheArrayOfAnEmptyTableUnfilled) {
  tool.Sql("CREATE TABLE [Character Styles] (Description); CREATE TABLE [Character Windows] (Device, Name)");
  variables.CharStyles.resize(3);
  tool.database.LoadCharStyles();
  tool.database.LoadCharWindows();
  EXPECT_THAT(variables.CharStyles, IsEmpty());
  EXPECT_EQ(FailureOf([&] { UBound(variables.CharWindows); }), kErrSubscript);
}

TEST_F(LoadArraysTest, HandsAFailedOpeningToItsCaller) {
  EXPECT_EQ(FailureOf([&] { tool.database.LoadOperatingModes(); }), kErrNoDatabase);
  // Each table is missing in turn; what comes before it in the order of loading is there.
  std::vector<std::pair<std::string, std::size_t (*)(const Variables&)>> steps = {
      {"Video Standards", [](const Variables& v) { return v.VideoStandards.size(); }},
      {"Character Max Positions", [](const Variables& v) { return v.CharMaxPositions.size(); }},
      {"Character Styles", [](const Variables& v) { return v.CharStyles.size(); }},
      {"Virtual Slate Modes", [](const Variables& v) { return v.SlateModes.size(); }},
      {"Down Converter Modes", [](const Variables& v) { return v.DownConverterModes.size(); }},
      {"Character Windows", [](const Variables& v) { return v.CharWindows.size(); }},
      {"Character Sizes", [](const Variables& v) { return v.CharSizes.size(); }},
      {"System Parameters", [](const Variables& v) { return v.SystemParameters.size(); }},
      {"Help Messages", [](const Variables& v) { return v.HelpMessages.size(); }},
      {"Code Sources", [](const Variables& v) { return v.CodeSources.size(); }},
      {"Time Code Assignments", [](const Variables& v) { return v.TimeCodeAssignments.size(); }},
      {"Down Converter Process Modes", [](const Variables& v) { return v.DownConverterProcessModes.size(); }},
      {"Down Converter Filters", [](const Variables& v) { return v.DownConverterFilters.size(); }},
      {"SDI Program Output", [](const Variables& v) { return v.SdiProgramOutputs.size(); }},
  };
  tool.Sql("CREATE TABLE [Unrelated] (n)");
  for (const auto& [table, size] : steps) {
    EXPECT_EQ(FailureOf([&] { tool.database.LoadArrays(); }), kErrNoTable) << "without " << table;
    EXPECT_EQ(size(variables), 0U) << table;
    const std::string name = "[" + table + "]";
    std::string sql = "CREATE TABLE " + name;
    sql += " (Device, Description, [Order]); INSERT INTO " + name;
    tool.Sql(sql + " VALUES (1, 'x', 1)");
  }
  EXPECT_EQ(FailureOf([&] { tool.database.LoadArrays(); }), 0);
  for (const auto& [table, size] : steps) EXPECT_EQ(size(variables), 1U) << table;
}

TEST_F(LoadArraysTest, EndsTheProgramOnAnUnusableDatabase) {
  EXPECT_THROW(tool.database.checkDatabase(), ProgramEnd);
  tool.Sql("CREATE TABLE [Operating Mode] (Name)");
  try {
    tool.database.checkDatabase();
    FAIL() << "went on without the table";
  } catch (const ProgramEnd& end) {
    EXPECT_EQ(end.status, 1);
  }
  const std::string start = "DataBase Error. Expected file at Path " + variables.DatabasePath;
  EXPECT_THAT(tool.dialogs.Texts(), ElementsAre(start + " Error code = 3024 App Terminated",
                                                start + " Error code = 3078 App Terminated"));
  EXPECT_EQ(tool.dialogs.shown[0].buttons, BoxButtons::kOk);

  tool.Sql("CREATE TABLE [Character Max Positions] (n)");
  tool.database.checkDatabase();
  EXPECT_THAT(tool.dialogs.shown, SizeIs(2));
}

TEST_F(LoadArraysTest, TakesTheVersionFromTheLastRow) {
  tool.Sql("CREATE TABLE General ([Database Version])");
  EXPECT_EQ(FailureOf([&] { tool.database.DatabaseVersion(); }), kErrNoCurrentRecord);
  tool.Sql("INSERT INTO General VALUES ('9.99'), (2.5)");
  EXPECT_EQ(tool.database.DatabaseVersion(), "2.5");
}

}  // namespace
}  // namespace marlinset
