// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/panel_setup.h"

#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

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
