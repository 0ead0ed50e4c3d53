// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

class ParameterDialogsTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(rig.tool.Start("")); }
  void Type(const char* classText, const char* parameter, const char* description, const char* value) {
    edit.txtClass.OperatorType(classText);
    edit.txtParameter.OperatorType(parameter);
    edit.txtDescription.OperatorType(description);
    edit.txtValue.OperatorType(value);
  }
  void Add(const char* classText, const char* parameter, const char* value) {
    vars.ConfigSaved = true;
    form.mnuAddParameter.OperatorClick();
    Type(classText, parameter, (std::string("Added ") + classText).c_str(), value);
    edit.cmdUpdate.OperatorClick();
    ASSERT_FALSE(edit.Visible());
    EXPECT_FALSE(vars.ConfigSaved);
  }
  ToolRig rig;
  FrmStart& form = rig.tool.form;
  Variables& vars = rig.tool.variables;
  FrmEditParameters& edit = rig.tool.parameterDialogs.frmEditParameters;
  FrmDeleteParameter& remove = rig.tool.parameterDialogs.frmDeleteParameter;
};

TEST_F(ParameterDialogsTest, LetsDigitsThroughOnly) {
  form.mnuAddParameter.OperatorClick();
  const std::string told = "Invalid input.\rPlease enter digits only (0-9)";
  for (const auto& [box, passes] :
       {std::pair(&edit.txtClass, "09\b"), std::pair(&edit.txtParameter, "09\b"),
        std::pair(&edit.txtValue, "-09\b"), std::pair(&edit.txtDescription, "")}) {
    for (const char key : std::string("/:- aZ\r09\b")) {
      rig.dialogs.shown.clear();
      box->OperatorKey(static_cast<char32_t>(key));
      const bool free = std::string(passes).find(key) != std::string::npos;
      EXPECT_THAT(rig.Boxes().size(), free || box == &edit.txtDescription ? 0U : 1U) << box->Name() << key;
      for (const std::string& text : rig.Boxes()) EXPECT_EQ(text, told);
    }
  }
  EXPECT_EQ(edit.txtClass.Text(), "0");
  EXPECT_EQ(edit.txtValue.Text(), "-0");
  EXPECT_EQ(edit.txtDescription.Text(), "/:- aZ0") << "Enter types nothing";
}

TEST_F(ParameterDialogsTest, RefusesInOrder) {
  const char* badClass = "Inavlid Class input, Enter a number between 0 and 64";
  const char* badParameter = "Inavlid Parameter input, Enter a number between 0 and 64";
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"40", "40", badClass},
      {"-1", "0", badClass},
      {"39.6", "0", badClass},
      {"99999999999", "0", badClass},
      {"25", "40", "Invalid Class input"},
      {"24.7", "0", "Invalid Class input"},
      {"39", "40", badParameter},
      {"nan", "40", badParameter},
      {"1", "-3", badParameter},
      {"2", "0", "Entry already found in parameters list"},
      {"2", "9", "Entry is invalid, retired parameter"},
  };
  const auto count = vars.SystemParameters.size();
  form.mnuAddParameter.OperatorClick();
  for (const auto& [classText, parameter, text] : cases) {
    SCOPED_TRACE(std::string(classText) + "/" + parameter);
    rig.dialogs.shown.clear();
    Type(classText, parameter, "Kept", "1");
    edit.cmdUpdate.OperatorClick();
    ASSERT_EQ(rig.Boxes(), std::vector<std::string>{text});
    EXPECT_EQ(rig.dialogs.shown[0].buttons, BoxButtons::kOkCancel);
    EXPECT_EQ(rig.dialogs.shown[0].icon, BoxIcon::kCritical);
    EXPECT_EQ(edit.txtDescription.Text(), "Kept");
    EXPECT_TRUE(edit.Visible() && vars.ConfigSaved);
  }
  // The presence is asked first: a retired parameter that a file brought back is present.
  vars.SystemParameters.push_back({2, 9, "Back", 0});
  rig.dialogs.shown.clear();
  Type("2", "9", "", "");
  edit.cmdUpdate.OperatorClick();
  EXPECT_THAT(rig.Boxes(), ElementsAre("Entry already found in parameters list"));
  EXPECT_EQ(vars.SystemParameters.size(), count + 1);
}

TEST_F(ParameterDialogsTest, AddsAParameterAndStartsAnewWhenOpenedAgain) {
  const int next = vars.NextParameterClass;
  Add("39", "39", "-300");
  EXPECT_THAT(rig.Boxes(), ElementsAre("The new parameter has been added to this configuration."));
  EXPECT_EQ(rig.dialogs.shown[0].icon, BoxIcon::kInformation);
  const int row = UBound(vars.SystemParameters);
  EXPECT_EQ(At(vars.SystemParameters, row).Value, -300);
  EXPECT_EQ(form.lDesc(row).Caption(), "Added 39");
  EXPECT_EQ(form.tVal(row).Text(), "-300");
  EXPECT_TRUE(form.udVal(row).Visible());
  EXPECT_EQ(vars.NextParameterClass, next + 1);
  Add("1", "30", "Info");
  EXPECT_FALSE(form.udVal(3).Visible()) << "class 1 is taken and stays hidden";
  EXPECT_EQ(At(vars.SystemParameters, 3).Parameter, 30);
  EXPECT_EQ(At(vars.SystemParameters, 3).Value, 0) << "what is no number is 0";
  Add("", "", "");
  EXPECT_EQ(At(vars.SystemParameters, 0).Class, 0) << "nothing typed is class 0";
  form.mnuAddParameter.OperatorClick();
  EXPECT_EQ(edit.txtClass.Text() + edit.txtDescription.Text(), "");
  edit.txtClass.OperatorType("7");
  edit.cmdDone.OperatorClick();
  form.mnuAddParameter.OperatorClick();
  EXPECT_EQ(edit.txtClass.Text(), "");
  EXPECT_EQ(rig.dialogs.forms.size(), 5U);
}

TEST_F(ParameterDialogsTest, AFailureIsOneBoxAndChangesNothing) {
  const auto count = vars.SystemParameters.size();
  form.mnuAddParameter.OperatorClick();
  Type("30", "1", "Kept", "32768");
  edit.cmdUpdate.OperatorClick();
  EXPECT_THAT(rig.Boxes(), ElementsAre("6  Overflow"));
  vars.DatabasePath += "x";
  Type("30", "1", "Kept", "3");
  edit.cmdUpdate.OperatorClick();
  form.mnuRemoveParameter.OperatorClick();
  EXPECT_EQ(rig.Boxes().size(), 3U);
  EXPECT_TRUE(rig.Boxes().back().starts_with("3024  "));
  EXPECT_TRUE(edit.Visible() && !remove.Visible() && vars.ConfigSaved);
  EXPECT_EQ(vars.SystemParameters.size(), count);
}

TEST_F(ParameterDialogsTest, DeletesWhatWasAdded) {
  form.mnuRemoveParameter.OperatorClick();
  EXPECT_EQ(remove.lstParameter.Count(), 0) << "the system's own parameters stay";
  remove.Command2.OperatorClick();
  EXPECT_TRUE(rig.Boxes().empty());
  remove.Command1.OperatorClick();
  const std::vector<SystemParameterRec> before = vars.SystemParameters;
  Add("2", "39", "5");
  Add("31", "2", "0");
  form.mnuRemoveParameter.OperatorClick();
  EXPECT_THAT(remove.lstParameter.Columns(),
              ElementsAre("Class", "Parameter", "Description", "Value", "Index"));
  EXPECT_THAT(remove.lstParameter.Rows(), ElementsAre(ElementsAre("2", "39", "Added 2", "5", "0"),
                                                      ElementsAre("31", "2", "Added 31", "0", "1")));
  rig.dialogs.shown.clear();
  vars.ConfigSaved = true;
  remove.Command2.OperatorClick();
  EXPECT_TRUE(vars.ConfigSaved);
  remove.lstParameter.OperatorSelect(0);
  remove.Command2.OperatorClick();
  EXPECT_EQ(remove.lstParameter.Selected(), 0);
  vars.ConfigSaved = true;
  remove.Command2.OperatorClick();
  EXPECT_FALSE(vars.ConfigSaved) << "also where no other row moves";
  EXPECT_THAT(rig.Boxes(), ElementsAre("Select a parameter to delete", "The Parameter entry has been deleted",
                                       "The Parameter entry has been deleted"));
  EXPECT_EQ(vars.SystemParameters.size(), before.size());
  const int surplus = UBound(vars.SystemParameters) + 1;
  EXPECT_FALSE(form.udVal(surplus).Visible() || form.lClass(surplus).Visible());
  EXPECT_EQ(form.lDesc(surplus).Caption(), "");
  EXPECT_EQ(remove.lstParameter.Selected(), -1);
  remove.Command1.OperatorClick();
  EXPECT_FALSE(remove.Visible());

  vars.SystemParameters = {{30, 1, "Last", 1}, {30, 1, "Twin", 2}};
  rig.dialogs.shown.clear();
  form.mnuRemoveParameter.OperatorClick();
  remove.lstParameter.OperatorSelect(1);
  remove.Command2.OperatorClick();
  EXPECT_THAT(rig.Boxes(), ElementsAre("9  Subscript out of range")) << "one parameter has to stay";
  EXPECT_EQ(vars.SystemParameters.size(), 2U);
}

}  // namespace
}  // namespace marlinset
