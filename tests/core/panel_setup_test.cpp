// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/panel_setup.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

struct Feed {
  const char* fieldName;
  const char* box;
  int index;
  int lines;  ///< with so many VITC lines something has to be there to choose
};
constexpr Feed kFeeds[] = {{"VTRT", "comTB", 0, 1},    {"VTRU", "ComUB", 0, 1},   {"LTC1GT", "comTB", 1, 1},
                           {"LTC1GU", "ComUB", 1, 1},  {"VITC1T", "comTB", 2, 1}, {"VITC1U", "ComUB", 2, 1},
                           {"VITC2", "comTB", 3, 2},   {"VITC3T", "comTB", 4, 3}, {"VITC3U", "ComUB", 4, 3},
                           {"no field", "ComUB", 3, 4}};

/// The boxes hold the lists of their field names, one behind the other, and stand at the first entry; the
/// last assignment of the mode decides the number of lines.
void ExpectRouting(const Variables& vars, const FrmStart& form) {
  int lines = 0;
  std::set<int> choices;
  std::map<std::string, std::vector<std::string>> lists;
  for (const TimeCodeAssignmentRec& row : vars.TimeCodeAssignments) {
    if (row.Name != vars.OperatingMode || row.Ignore1) continue;
    choices.insert(lines = row.VITCMode);
    for (const CodeSourceRec& source : vars.CodeSources) {
      if (source.FieldValue == row.FieldValue) lists[row.FieldName].push_back(source.Description);
    }
  }
  for (const Feed& feed : kFeeds) {
    const auto& box = dynamic_cast<ComboBox&>(*form.Find(feed.box, feed.index));
    EXPECT_EQ(box.List(), lists[feed.fieldName]) << feed.fieldName;
    EXPECT_EQ(box.ListIndex(), box.ListCount() > 0 ? 0 : -1) << feed.fieldName;
    EXPECT_TRUE(box.ListCount() > 0 || *choices.rbegin() < feed.lines) << feed.fieldName;
  }
  EXPECT_EQ(form.vitcModes.Selected(), lines - 1);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(form.oVITC(i).Enabled(), choices.contains(i + 1)) << i;
  EXPECT_TRUE(form.fVITC1.Visible());
  EXPECT_EQ(form.fVITC2.Visible(), lines >= 2);
  EXPECT_EQ(form.fVITC3.Visible(), lines >= 3);
}

/// Limits are those of the last row of standard and font size.
void ExpectWindows(const Variables& vars, const FrmStart& form) {
  CharMaxPosRec limits;
  for (const CharMaxPosRec& row : vars.CharMaxPositions) {
    if (row.VideoStandard == form.comVS.Text() && row.Description == form.ComWin(3).Text()) limits = row;
  }
  for (int row = 0; row <= UBound(vars.CharWindows); ++row) {
    SCOPED_TRACE(row);
    const CharWindowRec& window = At(vars.CharWindows, row);
    const int width = row == 13 ? 0 : window.Length + window.FieldLength + window.SymbolLength;
    EXPECT_EQ(form.udVer(row).Min(), limits.MaxVertPosn);
    EXPECT_EQ(form.udVer(row).Max(), limits.MinVertPosn);
    EXPECT_EQ(form.udHor(row).Min(), limits.MinHorPosn);
    EXPECT_EQ(form.udHor(row).Max(), limits.MaxHorPosn - width);
    EXPECT_EQ(form.udVer(row).Value(), std::min<int>(window.DefaultVertPosn, limits.MinVertPosn));
    EXPECT_EQ(form.udHor(row).Value(), std::min<int>(window.DefaultHorPosn, form.udHor(row).Max()));
    EXPECT_EQ(window.Top, form.udVer(row).Value());
    EXPECT_EQ(window.Left, form.udHor(row).Value());
    EXPECT_EQ(form.tVert(row).Text(), std::to_string(window.Top));
    EXPECT_EQ(form.chField(row).Enabled(), window.FieldLength != 0);
    EXPECT_EQ(form.chSym(row).Enabled(), window.SymbolLength != 0);
    EXPECT_EQ(form.udVer(row).Increment(), 4) << "the first size is Large";
    const bool shown = form.lName(row).Visible();
    const bool ticks[] = {form.chSlate(row).On(), form.chOnOff(row).On(), form.chField(row).On(),
                          form.chSym(row).On(), form.chDblSize(row).On()};
    EXPECT_THAT(ticks, ElementsAre(shown && window.DefaultSlateOnOff, shown && window.DefaultOnOff,
                                   window.DefaultFieldOnOff, window.DefaultSymbolOnOff, window.DoubleHeight));
  }
}

TEST(PanelSetup, ANewBringsTheDefaultsOfEveryModeAndStandard) {
  for (const char* mode : {"HD Video Downconvert", "Bi-Phase Accuracy Test", "KeyKode Accuracy Test",
                           "Multi-Camera Episodic", "Pre-stripe Timecode", "Test"}) {
    ToolRig rig;
    ASSERT_TRUE(rig.tool.Start(mode)) << mode;
    const FrmStart& form = rig.tool.form;
    for (int i = 0; i < form.comVS.ListCount(); ++i) {
      rig.tool.form.comVS.OperatorSelect(i);
      for (const auto* boxes : {&form.chSlate, &form.chOnOff, &form.chField, &form.chSym, &form.chDblSize}) {
        for (const int row : form.lName.Indices()) (*boxes)(row).SetValue(1);
      }
      rig.tool.panels.SetDefaults();
      SCOPED_TRACE(std::string(mode) + ", " + form.comVS.Text());
      ExpectRouting(rig.tool.variables, form);
      ExpectWindows(rig.tool.variables, form);
      EXPECT_EQ(form.ComWin(3).ListCount(), 3);
      EXPECT_EQ(form.UDDur.Max(), 200);
      std::vector<std::string> modes;
      for (const DownConvProcessRec& row : rig.tool.variables.DownConverterProcessModes) {
        if (row.VideoStandard == form.comVS.Text() && !row.Ignore1) modes.push_back(row.Description);
      }
      EXPECT_EQ(form.ComDownConv(0).List(), modes);
      EXPECT_FALSE(modes.empty());
    }
    EXPECT_EQ(rig.Boxes(), std::vector<std::string>());
  }
}

TEST(PanelSetup, ANewLeavesWhatItDoesNotKnowAndClearsTheRest) {
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start("TEST"));
  FrmStart& form = rig.tool.form;
  EXPECT_THAT((std::vector{form.ComDownConv(1).ListIndex(), form.ComDownConv(2).ListIndex()}),
              ElementsAre(9, 9));
  ComboBox* const kept[] = {&form.comVS, &form.ComWin(4), &form.ComDownConv(1), &form.ComDownConv(2)};
  ComboBox* const refilled[] = {&form.ComWin(0), &form.ComWin(1), &form.ComWin(2), &form.ComWin(3)};
  CheckBox* const ticks[] = {&form.chDups, &form.chSync, &form.chEnable, &form.chPrev};
  for (ComboBox* box : kept) box->SetListIndex(1);
  for (ComboBox* box : refilled) box->SetListIndex(1);
  for (CheckBox* box : ticks) box->SetValue(1);
  form.mnuCharOn.SetChecked(false);
  form.udVal(5).SetValue(77);
  form.chVITC.SetValue(0);
  form.UDDur.SetValue(150);
  EXPECT_EQ(form.tLineNumber(4).Text(), "150");
  form.tWinMess.SetText("roll 4");
  rig.tool.panels.SetDefaults();
  for (const ComboBox* box : kept) EXPECT_EQ(box->ListIndex(), 1) << box->FullName();
  for (const ComboBox* box : refilled) EXPECT_EQ(box->ListIndex(), 0) << box->FullName();
  EXPECT_EQ(form.ComWin(2).ListCount(), UBound(rig.tool.variables.CharStyles)) << "one is not offered";
  for (const CheckBox* box : ticks) EXPECT_EQ(box->Value(), 0) << box->Name();
  EXPECT_FALSE(form.mnuCharOn.Checked());
  EXPECT_EQ(form.udVal(5).Value(), 77);
  EXPECT_EQ(form.chVITC.Value(), 1);
  EXPECT_EQ(form.UDDur.Value(), 0);
  EXPECT_EQ(form.tWinMess.Text(), "");
}

TEST(PanelSetup, DownconvertShowsSevenWindowsAndSwitchesTheOthersOff) {
  for (const std::string mode : {"", "MCAM"}) {
    ToolRig rig;
    ASSERT_TRUE(rig.tool.Start(mode));
    const FrmStart& form = rig.tool.form;
    std::string shown;
    for (const int row : form.lName.Indices()) {
      const bool visible = form.lName(row).Visible();
      if (visible == mode.empty()) shown += form.lName(row).Caption() + ",";
      for (const char* name :
           {"chSlate", "chOnOff", "chField", "chSym", "chDblSize", "tVert", "udVer", "tHor", "udHor"}) {
        EXPECT_EQ(form.Find(name, row)->Visible(), visible) << name << row;
      }
      EXPECT_TRUE(form.tVert(row).Enabled() == visible && form.tHor(row).Enabled() == visible);
      EXPECT_TRUE(visible || form.chOnOff(row).Value() + form.chSlate(row).Value() == 0) << row;
    }
    EXPECT_EQ(shown, mode.empty() ? "Video Timecode,Video User Bits,Text,PullDown,Debug,Debug2,Debug3," : "");
    EXPECT_EQ(form.VScroll1.Visible(), !mode.empty()) << "seven fit";
    EXPECT_EQ(form.VScroll1.Max() > 0, !mode.empty());
    EXPECT_TRUE(form.VScroll2.Visible() && form.VScroll2.Max() > 0);
  }
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
