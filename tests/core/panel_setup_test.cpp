// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/panel_setup.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

/// Every operating mode of the shipped database with every video standard: what New makes of the panels.
class EveryModeAndStandard : public ::testing::Test {
 protected:
  template <class Check>
  void ForEach(const Check& check) {
    for (const char* mode : {"HD Video Downconvert", "Bi-Phase Accuracy Test", "KeyKode Accuracy Test",
                             "Multi-Camera Episodic", "Pre-stripe Timecode", "Test"}) {
      ToolRig rig;
      ASSERT_TRUE(rig.tool.Start(mode)) << mode;
      ASSERT_EQ(rig.tool.variables.OperatingMode, mode);
      for (int i = 0; i < rig.tool.form.comVS.ListCount(); ++i) {
        rig.tool.form.comVS.OperatorSelect(i);
        rig.tool.panels.SetDefaults();
        SCOPED_TRACE(std::string(mode) + ", " + rig.tool.form.comVS.Text());
        check(rig.tool);
      }
      EXPECT_EQ(rig.Boxes(), std::vector<std::string>());
    }
  }
};

TEST_F(EveryModeAndStandard, LinesStandAtTheirDefaultsInsideInvertedLimits) {
  ForEach([](Tool& tool) {
    for (const VideoStandardRec& standard : tool.variables.VideoStandards) {
      if (standard.Description != tool.form.comVS.Text()) continue;
      EXPECT_EQ(tool.form.UpDown1.Value(), standard.Vitc1Default1);
      EXPECT_EQ(tool.form.UpDown1.Max(), standard.Vitc1Min);
      EXPECT_EQ(tool.form.UpDown1.Min(), standard.Vitc1Max);
      EXPECT_EQ(tool.form.upVitc1(1).Value(), standard.Vitc1Default2);
      EXPECT_EQ(tool.form.upVitc1(5).Value(), standard.Vitc1Default2);
    }
    for (const int line : FrmStart::kVitcLineIndices) {
      const SpinControl& spin = tool.form.upVitc1(line);
      EXPECT_LT(spin.Max(), spin.Min());
      EXPECT_EQ(spin.Value(), std::clamp(spin.Value(), spin.Max(), spin.Min())) << line;
    }
  });
}

TEST_F(EveryModeAndStandard, TheLastAssignmentDecidesTheLineCountAndTheFrames) {
  ForEach([](Tool& tool) {
    int last = 0;
    std::set<int> offered;
    for (const TimeCodeAssignmentRec& row : tool.variables.TimeCodeAssignments) {
      if (row.Name != tool.variables.OperatingMode || row.Ignore1) continue;
      last = row.VITCMode;
      offered.insert(row.VITCMode);
    }
    EXPECT_EQ(tool.form.vitcModes.Selected(), last - 1);
    for (int mode = 0; mode < 3; ++mode) {
      EXPECT_EQ(tool.form.oVITC(mode).Enabled(), offered.contains(mode + 1)) << mode;
    }
    EXPECT_TRUE(tool.form.fVITC1.Visible());
    EXPECT_EQ(tool.form.fVITC2.Visible(), last >= 2);
    EXPECT_EQ(tool.form.fVITC3.Visible(), last >= 3);
  });
}

TEST_F(EveryModeAndStandard, BoxesHoldTheirFirstEntryAndTheUnusedOneNone) {
  ForEach([](Tool& tool) {
    for (const int i : tool.form.comTB.Indices()) {
      for (const ComboBox* box : {&tool.form.comTB(i), &tool.form.ComUB(i)}) {
        EXPECT_EQ(box->ListIndex(), box->ListCount() > 0 ? 0 : -1) << box->FullName();
      }
    }
    EXPECT_EQ(tool.form.ComUB(3).ListCount(), 0);
    EXPECT_EQ(tool.form.ComWin(3).ListCount(), 3);
    EXPECT_GE(tool.form.ComDownConv(0).ListCount(), 1);
    EXPECT_EQ(tool.form.ComDownConv(1).ListIndex(), 9);
    EXPECT_EQ(tool.form.chVITC.Value(), 1);
    EXPECT_EQ(tool.form.UDDur.Max(), 200);
  });
}

TEST_F(EveryModeAndStandard, WindowsStandInsideTheLimitsOfTheirStandardAndSize) {
  ForEach([](Tool& tool) {
    const CharMaxPosRec& limits = At(tool.variables.CharMaxPositions, tool.variables.CurCharMaxRow);
    EXPECT_EQ(limits.VideoStandard, tool.form.comVS.Text());
    EXPECT_EQ(limits.Description, tool.form.ComWin(3).Text());
    for (int row = 0; row <= UBound(tool.variables.CharWindows); ++row) {
      SCOPED_TRACE(row);
      const CharWindowRec& window = At(tool.variables.CharWindows, row);
      const int width = row == 13 ? 0 : window.Length + window.FieldLength + window.SymbolLength;
      EXPECT_EQ(tool.form.udVer(row).Min(), limits.MaxVertPosn);
      EXPECT_EQ(tool.form.udVer(row).Max(), limits.MinVertPosn);
      EXPECT_EQ(tool.form.udHor(row).Max(), limits.MaxHorPosn - width);
      EXPECT_EQ(tool.form.udVer(row).Value(), std::min<int>(window.DefaultVertPosn, limits.MinVertPosn));
      EXPECT_EQ(tool.form.udHor(row).Value(),
                std::min<int>(window.DefaultHorPosn, tool.form.udHor(row).Max()));
      EXPECT_EQ(window.Top, tool.form.udVer(row).Value());
      EXPECT_EQ(window.Left, tool.form.udHor(row).Value());
      EXPECT_EQ(tool.form.tVert(row).Text(), std::to_string(window.Top));
      EXPECT_EQ(tool.form.chField(row).Enabled(), window.FieldLength != 0);
      EXPECT_EQ(tool.form.chSym(row).Enabled(), window.SymbolLength != 0);
      EXPECT_EQ(tool.form.udVer(row).Increment(), 4) << "the first size is Large";
    }
  });
}

TEST(ArrangeWindowRows, DownconvertShowsSevenWindowsAndSwitchesTheOthersOff) {
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start(""));
  std::set<std::string> shown;
  for (const int row : rig.tool.form.lName.Indices()) {
    const bool visible = rig.tool.form.lName(row).Visible();
    if (visible) shown.insert(rig.tool.form.lName(row).Caption());
    for (const char* name :
         {"chSlate", "chOnOff", "chField", "chSym", "chDblSize", "tVert", "udVer", "tHor", "udHor"}) {
      EXPECT_EQ(rig.tool.form.Find(name, row)->Visible(), visible) << name << row;
    }
    EXPECT_EQ(rig.tool.form.tVert(row).Enabled(), visible);
    EXPECT_EQ(rig.tool.form.tHor(row).Enabled(), visible);
    if (!visible) {
      EXPECT_EQ(rig.tool.form.chOnOff(row).Value() + rig.tool.form.chSlate(row).Value(), 0) << row;
    }
  }
  EXPECT_EQ(shown, (std::set<std::string>{"Video Timecode", "Video User Bits", "Text", "PullDown", "Debug",
                                          "Debug2", "Debug3"}));
  EXPECT_FALSE(rig.tool.form.VScroll1.Visible()) << "all fit";
  EXPECT_EQ(rig.tool.form.VScroll1.Max(), 0);

  ToolRig episodic;
  ASSERT_TRUE(episodic.tool.Start("MCAM"));
  for (const int row : episodic.tool.form.lName.Indices()) {
    EXPECT_TRUE(episodic.tool.form.lName(row).Visible()) << row;
  }
  for (const ScrollBar* bar : {&episodic.tool.form.VScroll1, &episodic.tool.form.VScroll2}) {
    EXPECT_TRUE(bar->Visible()) << bar->Name();
    EXPECT_GT(bar->Max(), 0) << bar->Name();
  }
}

TEST(SetDefaults, LeavesWhatANewKeepsStanding) {
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start(""));
  FrmStart& form = rig.tool.form;
  form.comVS.SetListIndex(2);
  form.ComWin(4).SetListIndex(1);
  form.ComDownConv(1).SetListIndex(3);
  form.mnuCharOn.SetChecked(false);
  form.upVitc1(2).SetValue(form.upVitc1(2).Max() + 2);
  form.udVal(5).SetValue(77);
  form.UDDur.SetValue(150);
  form.tWinMess.SetText("roll 4");
  form.chDups.SetValue(1);
  const int second = form.upVitc1(2).Value();
  rig.tool.panels.SetDefaults();
  EXPECT_EQ(form.comVS.ListIndex(), 2);
  EXPECT_EQ(form.ComWin(4).ListIndex(), 1);
  EXPECT_EQ(form.ComDownConv(1).ListIndex(), 3);
  EXPECT_FALSE(form.mnuCharOn.Checked());
  EXPECT_EQ(form.upVitc1(2).Value(), second);
  EXPECT_EQ(form.udVal(5).Value(), 77);
  EXPECT_EQ(form.UDDur.Value(), 0);
  EXPECT_EQ(form.tWinMess.Text(), "");
  EXPECT_EQ(form.chDups.Value(), 0);
}

TEST(SetDefaults, AWindowAboveTheRightHandLimitOrBelowZeroComesInside) {
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start("MCAM"));
  std::vector<CharWindowRec>& windows = rig.tool.variables.CharWindows;
  windows[2].DefaultHorPosn = 300;
  windows[3].DefaultVertPosn = -7;
  windows[4].Length = 40;  // wider than the picture: nothing is left, and a position above that is negative
  windows[4].DefaultHorPosn = -3;
  windows[13].DefaultHorPosn = 31;
  rig.tool.panels.SetDefaults();
  const FrmStart& form = rig.tool.form;
  EXPECT_EQ(form.udHor(2).Value(), form.udHor(2).Max());
  EXPECT_EQ(form.udVer(3).Value(), -7) << "below the limit as the spin counts, so it is taken as it is";
  EXPECT_EQ(windows[3].Top, 7);
  EXPECT_EQ(form.udHor(4).Value(), form.udHor(4).Max() < -3 ? 0 : -3);
  EXPECT_EQ(form.udHor(13).Value(), 31) << "the message's window has no base width";
}

TEST(InitPanels, AnArrayWithoutRowsOrTooFewFiltersEndTheStart) {
  struct Case {
    const char* what;
    void (*spoil)(Variables& variables);
    int failure;
  };
  const Case cases[] = {
      {"no standard", [](Variables& v) { v.VideoStandards.clear(); }, kErrSubscript},
      {"no assignment", [](Variables& v) { v.TimeCodeAssignments.clear(); }, kErrSubscript},
      {"no window", [](Variables& v) { v.CharWindows.clear(); }, kErrSubscript},
      {"no parameter", [](Variables& v) { v.SystemParameters.clear(); }, kErrSubscript},
      {"nine filters", [](Variables& v) { v.DownConverterFilters.resize(9); }, kErrBadProperty},
      {"four VITC lines", [](Variables& v) { v.TimeCodeAssignments[0] = {"Test", 0, 4, "", "", false}; },
       kErrNoSuchElement},
  };
  for (const Case& testCase : cases) {
    ToolRig rig;
    Tool& tool = rig.tool;
    tool.variables.DatabasePath = SHIPPED_DATABASE_FOLDER + std::string(kDatabaseFile);
    tool.variables.OperatingMode = "Test";
    tool.database.LoadArrays();
    testCase.spoil(tool.variables);
    int failure = 0;
    try {
      tool.panels.InitPanels();
    } catch (const RuntimeError& error) {
      failure = error.Number();
    }
    EXPECT_EQ(failure, testCase.failure) << testCase.what;
  }
}

}  // namespace
}  // namespace marlinset
