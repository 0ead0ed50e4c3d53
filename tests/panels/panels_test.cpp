// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

class Panels : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(rig.tool.Start("")); }
  ToolRig rig;
  FrmStart& form = rig.tool.form;
  Variables& vars = rig.tool.variables;
};

TEST_F(Panels, AStandardBringsItsLimitsAndModesButSendsNothingAndIsNoEdit) {
  form.bOpen.Press();
  form.comVS.OperatorSelect(3);
  EXPECT_EQ(vars.VsLastIndex, 3);
  EXPECT_TRUE(vars.ConfigSaved);
  EXPECT_TRUE(rig.line.Sent().empty());
  const CharMaxPosRec& limits = At(vars.CharMaxPositions, vars.CurCharMaxRow);
  EXPECT_EQ(limits.VideoStandard, form.comVS.Text());
  EXPECT_EQ(limits.Description, form.ComWin(3).Text());
  for (int row = 0; row <= UBound(vars.CharWindows); ++row) {
    EXPECT_EQ(form.udHor(row).Max(),
              limits.MaxHorPosn - vars.CharWindows[static_cast<std::size_t>(row)].Length)
        << "room for field digit and symbol comes with their boxes";
    EXPECT_EQ(vars.CharWindows[static_cast<std::size_t>(row)].Top, form.udVer(row).Value());
  }
  EXPECT_EQ(form.ComDownConv(0).ListIndex(), 0);
}

TEST_F(Panels, NarrowerLimitsPullValuesEchoesAndPositionsWithoutAnEdit) {
  form.udHor(0).SetValue(form.udHor(0).Max());
  vars.ConfigSaved = true;
  At(vars.CharMaxPositions, vars.CurCharMaxRow).MaxHorPosn -= 20;
  const int before = form.udHor(0).Value();
  form.comVS.SetListIndex(form.comVS.ListIndex());
  EXPECT_LT(form.udHor(0).Value(), before);
  EXPECT_EQ(form.tHor(0).Text(), std::to_string(form.udHor(0).Value()));
  EXPECT_EQ(vars.CharWindows[0].Left, form.udHor(0).Value());
  EXPECT_TRUE(vars.ConfigSaved);
}

TEST_F(Panels, TypingIntoTheStandardIsTakenBack) {
  form.comVS.OperatorSelect(2);
  const std::string text = form.comVS.Text();
  form.comVS.OperatorType("1080q");
  EXPECT_EQ(form.comVS.Text(), text);
  form.comVS.OperatorKey('x');
  EXPECT_EQ(form.comVS.Text(), text);
  EXPECT_EQ(form.comVS.ListIndex(), 2);
  form.comVS.SetListIndex(-1);
  form.comVS.OperatorKey('\b');  // changes no text, and yet
  EXPECT_EQ(form.comVS.ListIndex(), 2);
}

TEST_F(Panels, AStandardWithoutPositionsKeepsTheLastLimits) {
  std::erase_if(vars.CharMaxPositions, [](const CharMaxPosRec& row) { return row.VideoStandard == "PAL"; });
  const int row = vars.CurCharMaxRow;
  const auto pal = std::find(form.comVS.List().begin(), form.comVS.List().end(), "PAL");
  ASSERT_NE(pal, form.comVS.List().end());
  form.comVS.OperatorSelect(static_cast<int>(pal - form.comVS.List().begin()));
  EXPECT_EQ(vars.CurCharMaxRow, row);
}

TEST_F(Panels, ViewsShowOnePanelEach) {
  const std::pair<int, Frame*> views[] = {{1, &form.fOutputs},
                                          {2, &form.fWindows},
                                          {3, &form.fParameters},
                                          {5, &form.fDownConverter},
                                          {0, &form.fCodes}};
  for (const auto& [view, panel] : views) {
    form.oView(view).OperatorClick();
    const Frame* panels[] = {&form.fCodes,      &form.fOutputs, &form.fWindows,
                             &form.fParameters, &form.fOptions, &form.fDownConverter};
    EXPECT_EQ(
        std::count_if(std::begin(panels), std::end(panels), [](auto* frame) { return frame->Visible(); }), 1);
    EXPECT_TRUE(panel->Visible()) << view;
  }
}

TEST_F(Panels, TheModelMenuShowsTheFramesOfTheQModelUnlessInteractive) {
  form.mnuHD7340Q.OperatorClick();
  EXPECT_TRUE(form.fFilters.Visible() && form.fProcessingMode.Visible() && form.fSDIProgramOut.Visible());
  EXPECT_TRUE(form.mnuHD7340Q.Checked() && !form.mnuHD7340.Checked());
  EXPECT_TRUE(vars.ConfigSaved);
  form.mnuInter.SetChecked(true);
  form.mnuHD7340.OperatorClick();
  EXPECT_EQ(vars.HardwareType, "HD7340Q");
}

TEST_F(Panels, ParametersSortByClassAndNumberAndHideTheInternalClasses) {
  std::reverse(vars.SystemParameters.begin(), vars.SystemParameters.end());
  form.bClass.Press();
  for (int row = 0; row <= UBound(vars.SystemParameters); ++row) {
    const SystemParameterRec& parameter = At(vars.SystemParameters, row);
    if (row > 0) {
      const SystemParameterRec& before = At(vars.SystemParameters, row - 1);
      EXPECT_LT(std::pair(before.Class, before.Parameter), std::pair(parameter.Class, parameter.Parameter));
    }
    const bool hidden = parameter.Class == 1 || parameter.Class == 25;
    EXPECT_EQ(form.lDesc(row).Visible(), !hidden);
    EXPECT_EQ(form.lClass(row).Caption(), std::to_string(parameter.Class));
    EXPECT_EQ(form.lDesc(row).Caption(), hidden ? "" : parameter.Description);
    EXPECT_EQ(form.tVal(row).Text(), std::to_string(parameter.Value));
  }
}

TEST_F(Panels, AParameterBeyondSixteenBitsIsToldAndKeepsItsValue) {
  const int row = UBound(vars.SystemParameters) - 3;
  ASSERT_TRUE(form.udVal(row).Visible());
  form.udVal(row).OperatorSpin(1234);
  EXPECT_EQ(At(vars.SystemParameters, row).Value, 1234);
  EXPECT_FALSE(vars.ConfigSaved);
  form.udVal(row).OperatorSpin(40000);
  EXPECT_EQ(rig.Boxes(), std::vector<std::string>{"6  Overflow"});
  EXPECT_EQ(At(vars.SystemParameters, row).Value, 1234);
}

}  // namespace
}  // namespace marlinset
