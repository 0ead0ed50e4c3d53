// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/panels/panel_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Parameters : testing::Test, PanelRig {
  void Take(std::vector<SystemParameterRec> list) {
    vars.SystemParameters = std::move(list);
    form.bClass.OperatorClick();
    vars.ConfigSaved = true;
  }
  /// The visible rows: "level=5".
  std::vector<std::string> Rows() const {
    std::vector<std::string> all;
    for (const int row : form.lDesc.Indices()) {
      if (form.udVal(row).Visible()) all.push_back(form.lDesc(row).Caption() + "=" + form.tVal(row).Text());
    }
    return all;
  }
  void Add(const std::string& classText, const std::string& parameter, const char* value) {
    form.mnuAddParameter.OperatorClick();
    edit.txtClass.OperatorType(classText);
    edit.txtParameter.OperatorType(parameter);
    edit.txtDescription.OperatorType("Added " + classText);
    edit.txtValue.OperatorType(value);
    edit.cmdUpdate.OperatorClick();
  }
  FrmEditParameters& edit = tool.parameterDialogs.frmEditParameters;
};

TEST_F(Parameters, SortBothWaysHideTheInternalClassesAndFitTheirSheet) {
  Take({{3, 1, "b", 4}, {25, 0, "c", 5}, {2, 9, "a", 6}, {1, 0, "B", 7}, {2, 1, "D", -2}});
  EXPECT_THAT(Rows(), ElementsAre("D=-2", "a=6", "b=4"));
  EXPECT_EQ(form.tVal(0).Text(), "7") << "the print lists hidden rows too";
  form.bDesc.OperatorClick();
  EXPECT_THAT(Rows(), ElementsAre("b=4", "a=6", "D=-2")) << "Z first, capitals below small letters";
  EXPECT_EQ(form.lClass(0).Caption(), "25");
  EXPECT_EQ(form.VScroll2.Max(), 0);

  std::vector<SystemParameterRec> many;
  for (std::int16_t i = 0; i < 60; ++i) many.push_back({2, i, "p" + std::to_string(100 + i), i});
  Take(many);
  EXPECT_EQ(Rows().size(), 60U);
  form.VScroll2.OperatorScroll(300);
  EXPECT_EQ(form.pParIn.Top(), 255 - 300);
  form.bClass.OperatorClick();
  EXPECT_EQ(form.pParIn.Top(), 255);
}

TEST_F(Parameters, GoToTheUnitAlsoInLocalModeAndByASort) {
  Take({{1, 0, "a", 9}, {2, 7, "level", 0}, {3, 200, "delay", 1}});
  form.udVal(1).OperatorSpin(1);
  EXPECT_THAT(Sent(), IsEmpty()) << "off line";
  GoInteractive();
  form.udVal(1).OperatorSpin(300);
  vars.UnitLocalMode = true;  // is not asked here
  form.udVal(2).OperatorSpin(-1);
  EXPECT_THAT(Sent(), ElementsAre("15 0 192 7 2 44 1 0 0", "15 0 192 200 3 255 255 255 255"));
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  line.Unit().Faults().drop = 1;
  form.udVal(1).OperatorSpin(2);
  EXPECT_THAT(TakeBoxes(), ElementsAre("Problem with parameter."));
  Sent();
  form.udVal(1).OperatorSpin(32768);
  EXPECT_THAT(TakeBoxes(), ElementsAre("6  Overflow"));
  EXPECT_THAT(Sent(), IsEmpty());
  EXPECT_EQ(At(vars.SystemParameters, 1).Value, 2);
  form.udVal(1).OperatorSpin(2);
  Sent();
  form.bClass.OperatorClick();
  EXPECT_THAT(Sent(), IsEmpty()) << "nothing moves";
  form.bDesc.OperatorClick();
  EXPECT_THAT(Sent(), ElementsAre("15 0 192 7 2 2 0 0 0", "15 0 192 200 3 255 255 255 255"));
}

TEST_F(Parameters, AreRefusedInOrder) {
  const auto count = vars.SystemParameters.size();
  for (const TableRow& row : TableOf("parameters_refused")) {
    SCOPED_TRACE(row[0] + "/" + row[1]);
    Add(row[0], row[1], "1");
    EXPECT_EQ(dialogs.shown.at(0).buttons, BoxButtons::kOkCancel);
    EXPECT_EQ(dialogs.shown.at(0).icon, BoxIcon::kCritical);
    EXPECT_THAT(TakeBoxes(), ElementsAre(row[2]));
    EXPECT_EQ(edit.txtValue.Text(), "1");
    EXPECT_TRUE(edit.Visible() && vars.ConfigSaved);
  }
  Add("30", "1", "32768");
  EXPECT_THAT(TakeBoxes(), ElementsAre("6  Overflow"));
  EXPECT_TRUE(edit.Visible() && vars.ConfigSaved);
  EXPECT_EQ(vars.SystemParameters.size(), count);
}

}  // namespace
}  // namespace marlinset
