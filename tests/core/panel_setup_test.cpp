// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/panel_setup.h"

#include <gmock/gmock.h>

#include "tests/support/sample_panels.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

TEST(PanelSetup, ANewOffersTheSourcesOfItsMode) {
  struct Case {
    const char* mode;
    std::vector<int> sources;  ///< in the boxes of input, LTC and the three lines
    std::vector<bool> lines;   ///< numbers of VITC lines to choose from
    int chosen;
  };
  for (const Case& c : {Case{"BIPH", {3, 3, 6, 5, 3, 3, 0, 0, 0}, {true, false, false}, 1},
                        Case{"MCAM", {7, 4, 6, 5, 4, 5, 3, 0, 0}, {true, true, false}, 2},
                        Case{"KEYK", {7, 4, 6, 5, 4, 5, 3, 3, 3}, {true, true, true}, 3}}) {
    SCOPED_TRACE(c.mode);
    ToolRig rig;
    ASSERT_TRUE(rig.tool.Start(c.mode));
    rig.tool.panels.SetDefaults();
    const FrmStart& form = rig.tool.form;
    std::vector<int> sources;
    std::vector<std::string> first;
    for (const ComboBox* box :
         {&form.comTB(0), &form.ComUB(0), &form.comTB(1), &form.ComUB(1), &form.comTB(2), &form.ComUB(2),
          &form.comTB(3), &form.comTB(4), &form.ComUB(4)}) {
      sources.push_back(box->ListCount());
      first.push_back(box->Text());
    }
    EXPECT_EQ(sources, c.sources);
    EXPECT_EQ(form.vitcModes.Selected(), c.chosen - 1);
    for (const int i : {0, 1, 2}) EXPECT_EQ(form.oVITC(i).Enabled(), c.lines[static_cast<std::size_t>(i)]);
    const bool shown[] = {form.fVITC1.Visible(), form.fVITC2.Visible(), form.fVITC3.Visible()};
    EXPECT_THAT(shown, ElementsAre(true, c.chosen > 1, c.chosen > 2));
    if (c.chosen < 3) continue;
    EXPECT_THAT(first, ElementsAre("Video LTC Reader Time", "Video LTC Reader User Bits",
                                   "Video LTC Reader Time", "Video LTC Reader User Bits",
                                   "Output Video Recorder Time", "Video Recorder User Bits", "KeyKode Reader",
                                   "In-Camera Time Code Reader", "In-Camera User Bits Reader"));
  }
}

TEST(PanelSetup, ANewPutsTheWindowsWhereTheStandardHasRoom) {
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start("MCAM"));
  FrmStart& form = rig.tool.form;
  struct Case {
    const char* standard;
    int bottom;  ///< of the largest font
    std::vector<std::string> converter;
  };
  for (const Case& c :
       {Case{"NTSC", 228, {"Bypass"}}, Case{"720p/60", 248, {"Alternate Frames", "Frame Blend"}}}) {
    SCOPED_TRACE(c.standard);
    SelectText(form.comVS, c.standard);
    std::string columns;
    std::string ticks;
    for (const int row : form.lName.Indices()) {
      for (auto* box : {&form.chSlate, &form.chOnOff, &form.chField, &form.chSym, &form.chDblSize}) {
        (*box)(row).SetValue(1);
      }
      form.udHor(row).SetValue(99);
    }
    rig.tool.panels.SetDefaults();
    for (const int row : form.lName.Indices()) {
      const CharWindowRec& window = At(rig.tool.variables.CharWindows, row);
      const SpinControl& line = form.udVer(row);
      EXPECT_THAT(
          (std::vector{line.Max(), line.Value(), line.Min(), line.Increment(), form.udHor(row).Min()}),
          ElementsAre(32, 32, c.bottom, 4, 0));
      EXPECT_TRUE(window.Top == line.Value() && window.Left == form.udHor(row).Value()) << row;
      EXPECT_EQ(form.tVert(row).Text(), std::to_string(window.Top));
      columns += std::to_string(window.Left) + "<" + std::to_string(form.udHor(row).Max()) + " ";
      ticks += form.chOnOff(row).On() ? "O" : "";
      ticks += form.chSlate(row).On() ? "S" : "";
      ticks += form.chDblSize(row).On() ? "D" : "";
      ticks += form.chField(row).On() ? "F" : form.chField(row).Enabled() ? "f" : "";
      ticks += form.chSym(row).On() ? "Y " : form.chSym(row).Enabled() ? "y " : " ";
    }
    // By the rows of the shipped database: a field digit or symbol that is there, or ticked.
    EXPECT_EQ(columns,
              "2<17 18<19 2<17 18<21 2<17 18<21 2<17 20<20 2<12 2<17 0<24 12<24 22<22 0<32 27<27 20<26 2<21 "
              "0<0 0<0 0<0 ");
    EXPECT_EQ(ticks, "OFy y fY  fY  Fy y OY fy S S SD  f S     ");
    EXPECT_EQ(form.ComWin(3).ListCount(), 3);
    EXPECT_EQ(form.UDDur.Max(), 200);
    EXPECT_EQ(form.ComDownConv(0).List(), c.converter);
  }
  EXPECT_EQ(rig.Boxes(), std::vector<std::string>());
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
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start(""));
  const FrmStart& form = rig.tool.form;
  std::string shown;
  for (const int row : form.lName.Indices()) {
    const bool visible = form.lName(row).Visible();
    if (visible) shown += form.lName(row).Caption() + ",";
    for (const char* name :
         {"chSlate", "chOnOff", "chField", "chSym", "chDblSize", "tVert", "udVer", "tHor", "udHor"}) {
      EXPECT_EQ(form.Find(name, row)->Visible(), visible) << name << row;
    }
    EXPECT_TRUE(form.tVert(row).Enabled() == visible && form.tHor(row).Enabled() == visible);
    EXPECT_TRUE(visible || form.chOnOff(row).Value() + form.chSlate(row).Value() == 0) << row;
  }
  EXPECT_EQ(shown, "Video Timecode,Video User Bits,Text,PullDown,Debug,Debug2,Debug3,");
  EXPECT_FALSE(form.VScroll1.Visible()) << "seven fit";
  EXPECT_TRUE(form.VScroll2.Visible() && form.VScroll2.Max() > 0);
  ToolRig all;
  ASSERT_TRUE(all.tool.Start("MCAM"));
  EXPECT_TRUE(all.tool.form.chOnOff(2).Visible() && all.tool.form.VScroll1.Max() > 0);
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
