// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/support/hex.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

class ParameterListTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(rig.tool.Start("")); }
  void Take(std::vector<SystemParameterRec> list) {
    vars.SystemParameters = std::move(list);
    form.bClass.OperatorClick();
    vars.ConfigSaved = true;
  }
  /// Descriptions in the order of the records, and of the rows that can be seen.
  std::vector<std::string> Records() const {
    std::vector<std::string> all;
    for (const SystemParameterRec& record : vars.SystemParameters) all.push_back(record.Description);
    return all;
  }
  std::vector<std::string> Rows() const {
    std::vector<std::string> all;
    for (const int row : form.lDesc.Indices()) {
      if (form.udVal(row).Visible()) all.push_back(form.lDesc(row).Caption() + "=" + form.tVal(row).Text());
    }
    return all;
  }
  ToolRig rig;
  FrmStart& form = rig.tool.form;
  Variables& vars = rig.tool.variables;
};

TEST_F(ParameterListTest, SortsBothWaysAndFitsItsSheet) {
  Take({{3, 1, "b", 4}, {25, 0, "c", 5}, {2, 9, "a", 6}, {1, 0, "B", 7}, {2, 1, "D", -2}});
  EXPECT_THAT(Records(), ElementsAre("B", "D", "a", "b", "c"));
  EXPECT_THAT(Rows(), ElementsAre("D=-2", "a=6", "b=4"));
  EXPECT_EQ(form.tVal(0).Text(), "7") << "the print lists hidden rows too";
  form.bDesc.OperatorClick();
  EXPECT_THAT(Records(), ElementsAre("c", "b", "a", "D", "B")) << "Z first, capitals below small letters";
  EXPECT_THAT(Rows(), ElementsAre("b=4", "a=6", "D=-2"));
  EXPECT_EQ(form.lClass(0).Caption(), "25");
  EXPECT_EQ(form.lDesc(0).Caption(), "");
  EXPECT_FALSE(form.lClass(0).Visible());
  EXPECT_EQ(form.VScroll2.Max(), 0);

  std::vector<SystemParameterRec> many;
  for (std::int16_t i = 0; i < 60; ++i) many.push_back({2, i, "p" + std::to_string(100 + i), i});
  Take(many);
  EXPECT_EQ(Rows().size(), 60U);
  form.VScroll2.OperatorScroll(300);
  EXPECT_EQ(form.pParIn.Top(), 255 - 300);
  form.bDesc.OperatorClick();
  EXPECT_EQ(form.VScroll2.Value(), 300) << "only the sort by class goes to the top";
  form.bClass.OperatorClick();
  EXPECT_EQ(form.pParIn.Top(), 255);
}

TEST_F(ParameterListTest, ShowsEitherRadix) {
  Take({{1, 0, "", -1}, {2, 0, "zero", 0}, {2, 1, "plus", 4095}, {2, 2, "minus", -2}});
  form.bValue.OperatorClick();
  EXPECT_EQ(form.bValue.Caption(), "Value (Hex)");
  EXPECT_EQ(vars.ParDisType, "Hex");
  EXPECT_THAT(Rows(), ElementsAre("zero=0", "plus=FFF", "minus=FFFFFFFE"));
  EXPECT_EQ(form.tVal(0).Text(), "FFFFFFFF");
  form.udVal(1).OperatorSpin(-32768);
  EXPECT_EQ(form.tVal(1).Text(), "FFFF8000");
  vars.ConfigSaved = true;
  form.bValue.OperatorClick();
  EXPECT_EQ(form.bValue.Caption(), "Value (Dec)");
  EXPECT_THAT(Rows(), ElementsAre("zero=-32768", "plus=4095", "minus=-2"));
  EXPECT_TRUE(vars.ConfigSaved);
  EXPECT_EQ(At(vars.SystemParameters, 0).Value, -1);
}

TEST_F(ParameterListTest, OneDescriptionIsOneValueAndTheRadixWritesByPlaceOnly) {
  Take({{2, 0, "twin", 5}, {2, 1, "other", 6}, {3, 0, "twin", 5}});
  form.udVal(2).OperatorSpin(77);
  EXPECT_EQ(At(vars.SystemParameters, 0).Value, 77);
  EXPECT_EQ(At(vars.SystemParameters, 2).Value, 77);
  EXPECT_EQ(form.udVal(0).Value(), 5) << "the other row's spin stays";
  EXPECT_FALSE(vars.ConfigSaved);
  form.bValue.OperatorClick();
  EXPECT_EQ(At(vars.SystemParameters, 0).Value, 5);
  EXPECT_EQ(At(vars.SystemParameters, 2).Value, 77);
}

TEST_F(ParameterListTest, SendsEveryChangeInInteractiveModeForTheWholeInterval) {
  Take({{1, 0, "hidden", 9}, {2, 7, "level", 0}, {3, 200, "delay", 1}});
  form.bOpen.Press();
  rig.line.ClearSent();
  form.udVal(1).OperatorSpin(1);
  EXPECT_TRUE(rig.line.Sent().empty()) << "off line";
  form.mnuInter.SetChecked(true);
  form.dPause.SetInterval(100);
  vars.ConfigSaved = true;
  const auto before = rig.pump.Now();
  form.udVal(1).OperatorSpin(300);
  EXPECT_GE(rig.pump.Now() - before, 100);
  vars.UnitLocalMode = true;  // is not asked here
  form.udVal(2).OperatorSpin(-1);
  EXPECT_THAT(rig.line.Sent(), ElementsAre(FromHex("02 09 0f 00 c0 07 02 2c 01 00 00 f2"),
                                           FromHex("02 09 0f 00 c0 c8 03 ff ff ff ff 61")));
  EXPECT_FALSE(vars.ConfigSaved);
  EXPECT_THAT(rig.Boxes(), ElementsAre());
  rig.line.Unit().Faults().drop = 1;
  form.udVal(1).OperatorSpin(2);
  EXPECT_THAT(rig.Boxes(), ElementsAre("Problem with parameter."));
  EXPECT_EQ(At(vars.SystemParameters, 1).Value, 2);
  rig.line.ClearSent();
  form.udVal(1).OperatorSpin(32768);
  EXPECT_THAT(rig.Boxes(), ElementsAre("Problem with parameter.", "6  Overflow"));
  EXPECT_TRUE(rig.line.Sent().empty());
  EXPECT_EQ(At(vars.SystemParameters, 1).Value, 2);
}

TEST_F(ParameterListTest, ASortSendsEachRowWhoseSpinMoves) {
  Take({{3, 1, "b", 4}, {2, 9, "a", 6}, {1, 0, "B", 7}, {2, 1, "D", -2}});
  form.bOpen.Press();
  form.mnuInter.SetChecked(true);
  form.dPause.SetInterval(100);
  rig.line.ClearSent();
  form.bClass.OperatorClick();
  EXPECT_TRUE(rig.line.Sent().empty() && vars.ConfigSaved) << "nothing moves";
  form.bDesc.OperatorClick();
  EXPECT_THAT(rig.line.Sent(), ElementsAre(FromHex("02 09 0f 00 c0 01 03 04 00 00 00 20"),
                                           FromHex("02 09 0f 00 c0 09 02 06 00 00 00 17"),
                                           FromHex("02 09 0f 00 c0 01 02 fe ff ff ff 2a")));
  EXPECT_FALSE(vars.ConfigSaved);
}

TEST_F(ParameterListTest, AFileOpenedWhileARowIsSentTakesTheRowAway) {
  form.bOpen.Press();
  form.mnuInter.SetChecked(true);
  form.dPause.SetInterval(100);
  const int row = 20;
  const int before = form.udVal(row).Value();
  rig.fileDialog.choices.emplace_back(rig.tool.variables.AppPath + "System Default Video.qcf");
  rig.pump.At(rig.pump.Now() + 50, [&] { form.mnuOpen.OperatorClick(); });
  form.udVal(row).OperatorStep(true, 3);
  EXPECT_EQ(form.udVal(row).Value(), before) << "the steps were the old row's";
  EXPECT_EQ(rig.fileDialog.shown.size(), 1U);
}

}  // namespace
}  // namespace marlinset
