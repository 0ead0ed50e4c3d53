// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/upgrade.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/record_columns.h"
#include "files/old_names.h"
#include "tests/files/sample.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;

TEST(OldNames, AreTranslatedExactly) {
  for (const std::string name : {"Bi-Phase Accuracy Test", "KeyKode Accuracy Test", "Multi-Camera Episodic",
                                 "Test", "Pre-stripe Timecode"}) {
    EXPECT_EQ(TranslateModeName("HD " + name), name);
  }
  EXPECT_EQ(TranslateModeName("hd test"), "hd test");
  EXPECT_EQ(TranslateModeName("HD Video Downconvert"), "HD Video Downconvert");
  EXPECT_EQ(TranslateCodeName("7340 Video Recorder Time"), "Output Video Recorder Time");
  for (const std::string name :
       {"Video LTC Reader Time", "Video LTC Reader User Bits", "Video Recorder User Bits"}) {
    EXPECT_EQ(TranslateCodeName("7340 " + name), name);
  }
  EXPECT_EQ(TranslateCodeName("video recorder time"), "video recorder time");
  FileRig rig;
  const auto inBox = [](const Control& box) { return TranslateCodeName("Video Recorder Time", &box); };
  EXPECT_EQ(inBox(rig.form.comTB(1)), "Video Recorder Time");
  EXPECT_EQ(inBox(rig.form.comTB(2)), "Output Video Recorder Time");
  EXPECT_EQ(inBox(rig.form.ComUB(2)), "Input Video Recorder Time");
  EXPECT_EQ(inBox(rig.form.ComUB(1)), "");
  EXPECT_EQ(TranslateCodeName("Video Recorder Time"), "");
}

struct UpgradeTest : ::testing::Test, FileRig {
  Upgrade upgrade{tool.platform, vars, form, tool.panels};

  std::vector<int> Numbers() const {
    std::vector<int> numbers;
    for (const CharWindowRec& window : vars.CharWindows) numbers.push_back(window.Number);
    return numbers;
  }
};

TEST_F(UpgradeTest, SortsByNumberAndTellsNothingOfEqualOnes) {
  vars.CharWindows.resize(4);
  for (std::size_t i = 0; i < 4; ++i) {
    vars.CharWindows[i].Number = std::to_array<std::int16_t>({5, 3, 5, 1})[i];
    vars.CharWindows[i].Name = std::string(1, static_cast<char>('a' + i));
  }
  upgrade.SortCharWindows();
  EXPECT_THAT(Numbers(), ElementsAre(1, 3, 5, 5));
  EXPECT_EQ(vars.CharWindows[2].Name, "c") << "where the exchanges leave them";
  vars.CharWindows = {{.Name = "a"}, {.Name = "b"}};
  upgrade.SortCharWindows();
  EXPECT_EQ(vars.CharWindows[0].Name, "a") << "equal ones are not exchanged";
}

TEST_F(UpgradeTest, OneMessageForManyNewWindowsAndNoneForRowsWithoutAUnit) {
  vars.CharWindows = {{.Name = "debug3", .DefaultVertPosn = 7}};
  upgrade.MergeCharWindows(Upgrade::DoubleHeight::kFromFile);
  EXPECT_EQ(Boxes().size(), 1U);
  EXPECT_EQ(vars.CharWindows.size(), 20U);
  EXPECT_EQ(vars.CharWindows[0].Number, 20);
  EXPECT_EQ(vars.CharWindows[0].DefaultVertPosn, 7);
  for (const CharWindowRec& window : vars.CharWindows) EXPECT_NE(window.Name, "Reserved");
  upgrade.MergeCharWindows(Upgrade::DoubleHeight::kFromFile);
  EXPECT_EQ(Boxes().size(), 1U);
}

TEST_F(UpgradeTest, AWindowOfTheFileKeepsItsDefaultsAndTakesTheRestFromItsRow) {
  std::string columns = "\"Device\"";
  for (const auto& column : ColumnsOf<CharWindowRec>()) columns += ", \"" + std::string(column.name) + "\"";
  RunSql(folder.File("shotsys.mdb"),
         "CREATE TABLE \"Character Windows\" (" + columns + "); INSERT INTO \"Character Windows\" " +
             "VALUES (1, 'W', 2, 1, 3, 4, 5, 1, 1, 6, 1, 7, 8, 9, 1, 1, 1, 1, 1, 1)");
  vars.DatabasePath = folder.File("shotsys.mdb");
  vars.CharWindows = {{.Name = " w", .DefaultHorPosn = 31, .DefaultVertPosn = 32}};
  upgrade.MergeCharWindows(Upgrade::DoubleHeight::kFromFile);
  const CharWindowRec& window = vars.CharWindows.at(0);
  EXPECT_EQ(window.Name, " w");
  EXPECT_THAT((std::vector<int>{window.Number, window.Top, window.Left, window.Length, window.SymbolLength,
                                window.FieldLength, window.DefaultHorPosn, window.DefaultVertPosn}),
              ElementsAre(2, 3, 4, 5, 6, 7, 31, 32));
  EXPECT_TRUE(window.On && window.SlateOn && window.SymbolOn && window.FieldOn && window.Ignore1);
  EXPECT_FALSE(window.DefaultOnOff || window.DoubleHeight);
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(UpgradeTest, NewRowsTakeTheStepOfTheFirst) {
  form.udVer(0).SetIncrement(4);
  vars.CharWindows.resize(2);
  upgrade.RebuildWindowRows();
  EXPECT_EQ(form.udVer.UBound(), 1);
  EXPECT_EQ(form.udVer(1).Increment(), 4);
  EXPECT_EQ(form.udVer(1).Min(), 30);
  EXPECT_EQ(form.udVer(1).Max(), 0);
  EXPECT_FALSE(form.lName(1).Visible()) << "until the rows are arranged";
}

TEST_F(UpgradeTest, AParameterDeletedAndKnownGoesAndComesBack) {
  RunSql(folder.File("shotsys.mdb"),
         "CREATE TABLE \"Deleted Parameters\" (\"Class\", \"Parameter\", \"Description\", \"Value\");"
         "INSERT INTO \"Deleted Parameters\" VALUES (7, 1, 'x', 0);"
         "CREATE TABLE \"System Parameters\" (\"Class\", \"Parameter\", \"Description\", \"Value\");"
         "INSERT INTO \"System Parameters\" VALUES (7, 1, 'again', 5), (9, 9, 'new', 6)");
  vars.DatabasePath = folder.File("shotsys.mdb");
  vars.SystemParameters = {{7, 1, "old", 1}, {8, 0, "kept", 2}};
  upgrade.RemoveDeletedParameters();
  ASSERT_EQ(vars.SystemParameters.size(), 1U);
  int lastRow = 0;
  upgrade.MergeParameters(lastRow);
  EXPECT_EQ(lastRow, 2);
  EXPECT_EQ(vars.NextParameterClass, 2);
  EXPECT_EQ(vars.SystemParameters[1].Description, "again");
  EXPECT_EQ(form.lDesc(2).Caption(), "new");
  EXPECT_EQ(form.udVal(2).Value(), 6);
  EXPECT_EQ(Boxes().size(), 2U);
  vars.SystemParameters = {{7, 1, "last", 1}};
  EXPECT_THROW(upgrade.RemoveDeletedParameters(), RuntimeError);
  EXPECT_EQ(vars.SystemParameters.size(), 1U);
}

}  // namespace
}  // namespace marlinset
