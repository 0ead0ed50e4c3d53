// SPDX-License-Identifier: GPL-3.0-or-later
// What the panels take from which row, on small tables of the test's own.
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The panels on the shipped tables as a test changes them; all windows are shown in this mode.
class PanelContents : public testing::Test {
 protected:
  PanelContents() {
    vars.DatabasePath = SHIPPED_DATABASE_FOLDER + std::string(kDatabaseFile);
    vars.OperatingMode = "Test";
    rig.tool.database.LoadArrays();
  }
  void Init() { rig.tool.panels.InitPanels(); }
  void New() { rig.tool.panels.SetDefaults(); }
  const std::vector<std::string>& List(const char* name, int index) {
    return dynamic_cast<ComboBox&>(*form.Find(name, index)).List();
  }

  ToolRig rig;
  Variables& vars = rig.tool.variables;
  FrmStart& form = rig.tool.form;
};

struct Feed {
  const char* fieldName;
  const char* box;  ///< null: the name feeds none
  int index;
};

constexpr Feed kFeeds[] = {{"VTRT", "comTB", 0},   {"VTRU", "ComUB", 0},   {"LTC1GT", "comTB", 1},
                           {"LTC1GU", "ComUB", 1}, {"VITC1T", "comTB", 2}, {"VITC1U", "ComUB", 2},
                           {"VITC2", "comTB", 3},  {"VITC3T", "comTB", 4}, {"VITC3U", "ComUB", 4},
                           {"ATRT", nullptr, 0},   {"ATRU", nullptr, 0},   {"Edge Style", nullptr, 0},
                           {"LOGINK", nullptr, 0}, {"LOGKK", nullptr, 0},  {"Anything", nullptr, 0}};

TEST_F(PanelContents, EachFieldNameFeedsItsBox) {
  vars.TimeCodeAssignments.clear();
  vars.CodeSources.clear();
  for (const char* order : {"first ", "second "}) {
    for (const Feed& feed : kFeeds) {
      vars.CodeSources.push_back({feed.fieldName, std::string(order) + feed.fieldName, 1, ""});
    }
  }
  for (const Feed& feed : kFeeds) {
    vars.TimeCodeAssignments.push_back({"Test", 0, 3, feed.fieldName, feed.fieldName, false});
    vars.TimeCodeAssignments.push_back({"Test", 0, 1, feed.fieldName, "VTRT", true});
    vars.TimeCodeAssignments.push_back({"Another mode", 0, 1, feed.fieldName, "VTRU", false});
  }
  Init();
  for (int round = 0; round < 2; ++round, New()) {
    for (const Feed& feed : kFeeds) {
      if (!feed.box) continue;
      const std::string name = feed.fieldName;
      EXPECT_THAT(List(feed.box, feed.index), ElementsAre("first " + name, "second " + name));
    }
    EXPECT_THAT(List("ComUB", 3), IsEmpty());
    EXPECT_EQ(form.vitcModes.Selected(), 2);
    EXPECT_FALSE(form.oVITC(0).Enabled());
  }

  for (CheckBox* box : {&form.chDups, &form.chSync, &form.chEnable, &form.chPrev}) box->SetValue(1);
  form.chVITC.SetValue(0);
  vars.TimeCodeAssignments.push_back({"Test", 0, 2, "VITC2", "VTRU", false});
  New();
  EXPECT_THAT(List("comTB", 3), ElementsAre("first VITC2", "second VITC2", "first VTRU", "second VTRU"));
  EXPECT_TRUE(form.fVITC2.Visible() && !form.fVITC3.Visible());
  for (CheckBox* box : {&form.chDups, &form.chSync, &form.chEnable, &form.chPrev}) {
    EXPECT_EQ(box->Value(), 0) << box->Name();
  }
  EXPECT_EQ(form.chVITC.Value(), 1);
}

/// Takes row 1 out and returns the texts of the others.
template <class Row>
std::vector<std::string> TakeSecondOut(std::vector<Row>& table) {
  table[1].Ignore1 = true;
  std::vector<std::string> others;
  for (const Row& row : table) {
    if (!row.Ignore1) others.push_back(row.Description);
  }
  return others;
}

TEST_F(PanelContents, NothingThatTheDatabaseTookOutIsOffered) {
  const std::pair<ComboBox*, std::vector<std::string>> kBoxes[] = {
      {&form.ComWin(0), TakeSecondOut(vars.DownConverterModes)},
      {&form.ComWin(1), TakeSecondOut(vars.SlateModes)},
      {&form.ComWin(2), TakeSecondOut(vars.CharStyles)},
      {&form.ComWin(4), TakeSecondOut(vars.SdiProgramOutputs)},
      {&form.comVS, TakeSecondOut(vars.VideoStandards)},
      {&form.ComDownConv(1), TakeSecondOut(vars.DownConverterFilters)},
      {&form.ComDownConv(2), TakeSecondOut(vars.DownConverterFilters)}};
  vars.DownConverterProcessModes = {{1, "One", 1, vars.VideoStandards[0].Description, false},
                                    {2, "Out", 2, vars.VideoStandards[0].Description, true},
                                    {3, "Elsewhere", 3, vars.VideoStandards[2].Description, false},
                                    {4, "Two", 4, vars.VideoStandards[0].Description, false}};
  Init();
  for (const auto& [box, offered] : kBoxes) EXPECT_EQ(box->List(), offered) << box->FullName();
  EXPECT_THAT(List("ComDownConv", 0), ElementsAre("One", "Two"));
  for (const int filter : {1, 2}) EXPECT_EQ(form.ComDownConv(filter).ListIndex(), 9);

  form.ComDownConv(0).SetListIndex(1);
  for (const int refilled : {0, 1, 2}) {
    form.ComWin(refilled).AddItem("from before");
    form.ComWin(refilled).SetListIndex(1);
  }
  New();
  EXPECT_EQ(form.ComDownConv(0).Text(), "Two") << "a New keeps it";
  for (const auto& [box, offered] : kBoxes) EXPECT_EQ(box->List(), offered) << box->FullName();
  for (const int refilled : {0, 1, 2}) EXPECT_EQ(form.ComWin(refilled).ListIndex(), 0) << refilled;
}

TEST_F(PanelContents, AStartWithoutAnyStandardGoesOn) {
  for (VideoStandardRec& standard : vars.VideoStandards) standard.Ignore1 = true;
  Init();
  EXPECT_EQ(form.comVS.ListCount(), 0);
  EXPECT_THAT(List("ComWin", 3), IsEmpty()) << "no standard, no font sizes";
  EXPECT_EQ(form.udVer(0).Increment(), 1);
  EXPECT_EQ(form.udHor(0).Max(), vars.CharMaxPositions[0].MaxHorPosn - vars.CharWindows[0].Length -
                                     vars.CharWindows[0].FieldLength - vars.CharWindows[0].SymbolLength);
  EXPECT_TRUE(form.comVS.OperatorType("PAL"));
  EXPECT_TRUE(form.comVS.OperatorKey('x'));
  EXPECT_EQ(form.comVS.ListIndex(), -1);
  EXPECT_THAT(rig.Boxes(), IsEmpty());
}

/// A standard whose numbers all differ, counted from `base`.
VideoStandardRec StandardFrom(const char* name, std::int16_t base) {
  const auto plus = [base](int offset) { return static_cast<std::int16_t>(base + offset); };
  VideoStandardRec standard{.Description = name};
  standard.Vitc1Min = plus(0);
  standard.Vitc1Max = plus(9);
  standard.Vitc1Default1 = plus(1);
  standard.Vitc1Default2 = plus(2);
  standard.Vitc2Line2Min = plus(20);
  standard.Vitc2Line2Max = plus(29);
  standard.Vitc2Line2Default1 = plus(23);
  standard.Vitc3Min = plus(40);
  standard.Vitc3Max = plus(49);
  standard.Vitc3Default1 = plus(44);
  return standard;
}

TEST_F(PanelContents, LinesTakeTheLastRowOfTheirStandard) {
  struct Line {
    int line;
    int lowest;  ///< from the row's base; the highest is 9 above
    int value;
  };
  const Line kLines[] = {{1, 0, 2}, {5, 0, 2}, {2, 20, 23}, {6, 20, 23}, {3, 40, 44}, {7, 40, 44}};
  vars.VideoStandards = {StandardFrom("1080i/60", 200), StandardFrom("PAL", 300),
                         StandardFrom("1080i/60", 200)};
  VideoStandardRec& first = vars.VideoStandards[0];
  first.Vitc1Default1 = first.Vitc1Default2 = 208;
  first.Vitc2Line2Default1 = 228;
  first.Vitc3Default1 = 248;
  vars.VideoStandards[2].Ignore1 = true;  // not in the list, but its numbers count
  const auto expectLimits = [&](int base) {
    for (const Line& line : kLines) {
      EXPECT_EQ(form.upVitc1(line.line).Max(), base + line.lowest) << line.line;
      EXPECT_EQ(form.upVitc1(line.line).Min(), base + line.lowest + 9) << line.line;
    }
    EXPECT_EQ(form.UpDown1.Max(), base);
    EXPECT_EQ(form.UpDown1.Min(), base + 9);
  };
  Init();
  expectLimits(200);
  for (const Line& line : kLines) EXPECT_EQ(form.upVitc1(line.line).Value(), 200 + line.value) << line.line;
  EXPECT_EQ(form.UpDown1.Value(), 201);
  EXPECT_THAT(vars.VitcLineDefault, ElementsAre(202, 202, 223, 223, 244, 244));

  form.comVS.SetListIndex(1);
  expectLimits(300);
  for (const Line& line : kLines) {
    EXPECT_EQ(form.upVitc1(line.line).Value(), 300 + line.lowest) << "pulled to its nearest line";
    EXPECT_EQ(form.tLineNumber(line.line).Text(), std::to_string(300 + line.lowest));
  }
  for (const int line : {2, 6, 3, 7}) form.upVitc1(line).SetValue(320 + line);
  form.upVitc1(7).SetMax(-50);
  form.upVitc1(7).SetValue(-48);
  vars.VideoStandards[1].Vitc3Min = -50;
  New();
  EXPECT_THAT(vars.VitcLineDefault, ElementsAre(302, 302, 322, 326, 323, 48));
  EXPECT_EQ(form.UpDown1.Value(), 301);
}

TEST_F(PanelContents, WindowsTakeTheLastLimitsOfStandardAndFontSize) {
  const std::string standard = vars.VideoStandards[0].Description;
  vars.CharMaxPositions.push_back({"Large (32 lines/field)", standard, 7, 44, 111, 3, 60});
  vars.CharMaxPositions.push_back({"Large (32 lines/field)", "PAL", 1000, 55, 122, 4, 70});
  const int last = UBound(vars.CharMaxPositions) - 1;
  const auto expectLimits = [&](int width) {
    EXPECT_EQ(vars.CurCharMaxRow, last);
    EXPECT_EQ(form.udVer(0).Max(), 44);
    EXPECT_EQ(form.udVer(0).Min(), 111);
    EXPECT_EQ(form.udHor(0).Min(), 3);
    EXPECT_EQ(form.udHor(0).Max(), 60 - width);
  };
  const CharWindowRec& window = vars.CharWindows[0];
  Init();
  expectLimits(window.Length + window.FieldLength + window.SymbolLength);
  EXPECT_EQ(form.ComWin(3).ListCount(), 3) << "other hardware's sizes are not offered";
  vars.CurCharMaxRow = 0;
  form.comVS.SetListIndex(0);
  expectLimits(window.Length);
}

TEST_F(PanelContents, WindowsTakeEachTickFromItsOwnDefault) {
  bool CharWindowRec::*const kDefaults[] = {&CharWindowRec::DefaultOnOff, &CharWindowRec::DefaultSlateOnOff,
                                            &CharWindowRec::DefaultFieldOnOff,
                                            &CharWindowRec::DefaultSymbolOnOff, &CharWindowRec::DoubleHeight};
  const char* const kBoxes[] = {"chOnOff", "chSlate", "chField", "chSym", "chDblSize"};
  for (std::size_t row = 0; row < 5; ++row) {
    for (const auto flag : kDefaults) vars.CharWindows[row].*flag = false;
    vars.CharWindows[row].*kDefaults[row] = true;
    vars.CharWindows[row].FieldLength = vars.CharWindows[row].SymbolLength = 1;  // or their ticks don't stay
  }
  Init();
  for (int round = 0; round < 2; ++round, New()) {
    for (int row = 0; row < 5; ++row) {
      for (int box = 0; box < 5; ++box) {
        auto& check = dynamic_cast<CheckBox&>(*form.Find(kBoxes[box], row));
        EXPECT_EQ(check.Value(), box == row ? 1 : 0) << check.FullName();
        check.SetValue(1);
      }
    }
  }
}

TEST_F(PanelContents, TheVerticalStepIsARowOfTheFont) {
  Init();
  for (const auto& [size, step] : {std::pair{"Large", 4}, std::pair{"Small", 2}, std::pair{"Tiny", 1}}) {
    vars.CharMaxPositions = {{size, form.comVS.Text(), 200, 32, 252, 0, 32}};
    New();
    EXPECT_EQ(form.ComWin(3).Text(), size);
    for (const int row : {0, UBound(vars.CharWindows)}) EXPECT_EQ(form.udVer(row).Increment(), step) << size;
  }
}

TEST_F(PanelContents, ANewSortsTheParameters) {
  Init();
  std::reverse(vars.SystemParameters.begin(), vars.SystemParameters.end());
  const std::string last = vars.SystemParameters[0].Description;
  New();
  EXPECT_EQ(vars.SystemParameters.back().Description, last);
  EXPECT_EQ(form.lDesc(UBound(vars.SystemParameters)).Caption(),
            IsInternalClass(vars.SystemParameters.back().Class) ? "" : last);
}

TEST_F(PanelContents, NumbersShowBesideTheirSpins) {
  vars.SystemParameters = {{2, 1, "Level", -3}};
  Init();
  form.UpDown1.SetValue(12);
  form.UDDur.SetValue(150);
  EXPECT_EQ(form.tLineNumber(0).Text(), "12");
  EXPECT_EQ(form.tLineNumber(4).Text(), "150");

  struct Spin {
    const char* radix;
    bool up;
    int times;
    std::int16_t value;
    const char* shown;
  };
  for (const Spin& spin : {Spin{"Dec", true, 1, -2, "-2"}, Spin{"Dec", false, 3, -5, "-5"},
                           Spin{"Hex", true, 1, -4, "FFFFFFFC"}, Spin{"Hex", true, 304, 300, "12C"}}) {
    vars.ParDisType = spin.radix;
    form.udVal(0).OperatorStep(spin.up, spin.times);
    EXPECT_EQ(vars.SystemParameters[0].Value, spin.value);
    EXPECT_EQ(form.tVal(0).Text(), spin.shown);
  }
}

}  // namespace
}  // namespace marlinset
