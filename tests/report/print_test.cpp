// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/temp_folder.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using Texts = std::vector<std::string>;

class PrintTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(rig_.tool.Start("TEST")); }

  const PrintedForm& Print(std::size_t page = 0) {
    rig_.printer.jobs.clear();
    form_.mnuPrint.OperatorClick();
    return rig_.printer.jobs.at(0).forms.at(page);
  }
  /// What stands behind `head` on the page, `count` texts.
  static Texts Behind(const Texts& texts, const std::string& head, int count) {
    const auto found = std::find(texts.begin(), texts.end(), head);
    if (texts.end() - found <= count) return {"(" + head + " is missing)"};
    return {found + 1, found + 1 + count};
  }
  /// Texts and boxes each have a place of their own, on the sheet.
  static void ExpectNothingOverlaps(const PrintSheet& sheet) {
    constexpr double kTouch = 1e-6;
    for (auto a = sheet.begin(); a != sheet.end(); ++a) {
      EXPECT_TRUE(a->x >= 0 && a->y >= 0 && a->x + a->width <= kSheetWidth + kTouch &&
                  a->y + a->height <= kSheetHeight + kTouch)
          << a->text;
      const auto fills = [](const PrintItem& item) {
        return item.kind == PrintKind::kText || item.kind == PrintKind::kCheck;
      };
      for (auto b = sheet.begin(); fills(*a) && b != a; ++b) {
        EXPECT_FALSE(fills(*b) && a->x + kTouch < b->x + b->width && b->x + kTouch < a->x + a->width &&
                     a->y + kTouch < b->y + b->height && b->y + kTouch < a->y + a->height)
            << a->text << " on " << b->text;
      }
    }
  }
  void ShowModel(const std::string& text) { form_.StatBar(FrmStart::kModelPanel).SetText(text); }
  void GoInteractive() {
    rig_.line.SetPortOpen(true);
    form_.mnuInter.SetChecked(true);
    form_.mnuOff.SetChecked(false);
    form_.InterTime.SetEnabled(true);
  }

  ToolRig rig_;
  FrmStart& form_ = rig_.tool.form;
  Variables& vars_ = rig_.tool.variables;
};

TEST_F(PrintTest, EveryValueStandsInItsPlace) {
  // A form without rules takes any text.
  FrmStart form(rig_.pump, rig_.guard);
  PrintCommand command(rig_.tool.platform, vars_, form);
  form.comVS.OperatorType("a standard");
  for (int i = 0; i < 5; ++i) {
    form.comTB(i).OperatorType("time " + std::to_string(i));
    form.ComUB(i).OperatorType("user " + std::to_string(i));
  }
  for (int i = 0; i < 8; ++i) form.tLineNumber(i).SetText(std::to_string(100 + i));
  for (const int i : form.ComWin.Indices()) form.ComWin(i).OperatorType("choice " + std::to_string(i));
  for (const int i : form.ComDownConv.Indices()) form.ComDownConv(i).OperatorType("dc " + std::to_string(i));
  form.oVITC(2).SetValue(true);
  form.chEnable.SetValue(1);
  form.chDups.SetValue(1);
  form.tWinMess.SetText("Roll 3");
  form.mnuCom1.SetChecked(false);
  form.mnuCom3.SetChecked(true);
  form.StatBar(FrmStart::kModelPanel).SetText("HD7340Q");
  form.mnuPrint.OperatorClick();
  EXPECT_EQ(rig_.printer.jobs.at(0).request.title, form.Caption());
  const PrintedForm& printed = rig_.printer.jobs.at(0).forms.at(0);
  ExpectNothingOverlaps(printed.sheets.front());
  const Texts page = printed.Texts();
  EXPECT_THAT(Behind(page, form.Caption(), 8),
              ElementsAre("21/11/2026 14:30", "Page 1 of 2", "Video Standard:", "a standard",
                          "VITC Mode:", "3 Line", "Com Port:", "3"));
  EXPECT_THAT(Behind(page, "Inputs", 4), ElementsAre("Time Bits:", "time 0", "User Bits:", "user 0"));
  EXPECT_THAT(Behind(page, "LTC", 4), ElementsAre("Time Bits:", "time 1", "User Bits:", "user 1"));
  const char* const lines[] = {"VITC 1st Line", "VITC 2nd Line", "VITC 3rd Line"};
  for (int i = 0; i < 3; ++i) {
    EXPECT_THAT(Behind(page, lines[i], 7),
                ElementsAre("Time Bits:", "time " + std::to_string(i + 2),
                            "User Bits:", "user " + std::to_string(i + 2), "Line Numbers",
                            std::to_string(101 + i), std::to_string(105 + i)));
  }
  EXPECT_THAT(Behind(page, "White Flag", 4), ElementsAre("Line Number", "100", "[x]", "Enabled"));
  EXPECT_THAT(Behind(page, "Active Outputs", 6),
              ElementsAre("[ ]", "VITC Enabled", "[x]", "Encode Duplicate VITC Lines", "[ ]",
                          "Synchronize Line Numbers"));
  EXPECT_THAT(Behind(page, "Attributes", 4), ElementsAre("Style:", "choice 2", "Font Size:", "choice 3"));
  EXPECT_THAT(Behind(page, "Virtual Slate", 6),
              ElementsAre("Mode:", "choice 1", "Duration (frs):", "104", "[ ]", "Preview"));
  EXPECT_THAT(Behind(page, "Text Window Message", 1), ElementsAre("Roll 3"));
  EXPECT_THAT(Behind(page, "Down Converter", 10),
              ElementsAre("Aspect Ratio:", "choice 0", "Processing Mode:", "dc 0", "V. Filter:", "dc 1",
                          "H. Filter:", "dc 2", "SDI Program Out", "choice 4"));
  EXPECT_THAT(page, Not(Contains("Parameters")));
}

TEST_F(PrintTest, WhatDoesNotApplyIsLeftOut) {
  for (int mode = 0; mode < 3; ++mode) {
    form_.oVITC(mode).SetValue(true);
    const Texts page = Print().Texts();
    EXPECT_THAT(page, Contains(std::to_string(mode + 1) + " Line"));
    EXPECT_THAT(page, Contains("VITC 1st Line"));
    EXPECT_EQ(std::count(page.begin(), page.end(), "VITC 2nd Line"), mode >= 1 ? 1 : 0);
    EXPECT_EQ(std::count(page.begin(), page.end(), "VITC 3rd Line"), mode >= 2 ? 1 : 0);
  }
  form_.mnuCom1.SetChecked(false);
  EXPECT_THAT(Behind(Print().Texts(), "Com Port:", 1), ElementsAre(std::to_string(rig_.line.CommPort())));
  // A file's message takes the place of the model.
  for (const char* model : {"HD7340", "", "File x Loaded ", "7340Q "}) {
    ShowModel(model);
    const Texts page = Print().Texts();
    EXPECT_THAT(Behind(page, "Down Converter", 3),
                ElementsAre("Aspect Ratio:", form_.ComWin(0).Text(), "Active Window Position"));
  }
}

TEST_F(PrintTest, HiddenWindowsLeaveNoGap) {
  // Over three rows no two columns are ticked alike.
  constexpr int kTicks[] = {3, 2, 1, 4, 5};
  ControlArray<CheckBox>* const columns[] = {&form_.chSlate, &form_.chOnOff, &form_.chField, &form_.chSym,
                                             &form_.chDblSize};
  for (int column = 0; column < 5; ++column) {
    for (int bit = 0; bit < 3; ++bit) (*columns[column])(2 + bit).SetValue(kTicks[column] >> bit & 1);
  }
  form_.udVer(2).SetValue(77);
  form_.lName(1).SetVisible(false);
  const Texts page = Print().Texts();
  EXPECT_THAT(page, Not(Contains(form_.lName(1).Caption())));
  EXPECT_THAT(Behind(page, form_.lName(2).Caption(), 7),
              ElementsAre("[x]", "[ ]", "[x]", "[ ]", "[x]", "77", form_.tHor(2).Text()));
  EXPECT_THAT(Behind(page, form_.lName(3).Caption(), 5), ElementsAre("[x]", "[x]", "[ ]", "[ ]", "[ ]"));
  EXPECT_THAT(Behind(page, form_.lName(4).Caption(), 5), ElementsAre("[ ]", "[ ]", "[ ]", "[x]", "[x]"));
  double end = 0;
  double begin = -1;
  for (const PrintItem& item : Print().sheets.front()) {
    if (item.text == form_.lName(0).Caption()) end = item.y + item.height;
    if (item.text == form_.lName(2).Caption()) begin = item.y;
  }
  EXPECT_DOUBLE_EQ(begin, end);
}

TEST_F(PrintTest, PageTwoHoldsAllParametersAndNothingElse) {
  form_.bValue.OperatorClick();
  const Texts page = Print(1).Texts();
  Texts expected = {form_.Caption(), "21/11/2026 14:30", "Page 2 of 2", "Parameters",
                    "Class",         "Parameter",        "Description", form_.bValue.Caption()};
  bool hiddenClass = false;
  for (int i = 0; i < static_cast<int>(vars_.SystemParameters.size()); ++i) {
    const SystemParameterRec& parameter = At(vars_.SystemParameters, i);
    hiddenClass = hiddenClass || parameter.Class == 25;
    for (const std::string& text : {std::to_string(parameter.Class), std::to_string(parameter.Parameter),
                                    parameter.Description, form_.tVal(i).Text()}) {
      expected.push_back(text);
    }
  }
  EXPECT_TRUE(hiddenClass);
  EXPECT_EQ(page, expected);
}

TEST_F(PrintTest, LongListsGoOnOnFurtherSheets) {
  const Texts before = Print(1).Texts();
  vars_.SystemParameters.resize(400, {.Class = 9, .Parameter = 1, .Description = "Added", .Value = 0});
  for (int pages = 0; pages < 2; ++pages) {
    for (int i = 20; pages == 1 && i < 80; ++i) {  // page 1 too
      vars_.CharWindows.push_back(vars_.CharWindows.front());
    }
    const PrintedForm& form = Print(pages == 0 ? 1 : 0);
    EXPECT_THAT(form.sheets, SizeIs(pages == 0 ? 9 : 3));
    for (const PrintSheet& sheet : form.sheets) {
      const auto stands = [&](const std::string& text) {
        return std::any_of(sheet.begin(), sheet.end(), [&](const auto& item) { return item.text == text; });
      };
      EXPECT_TRUE(stands(form_.Caption()));
      EXPECT_TRUE(stands(pages == 0 ? "Description" : "Dbl Height"));
      EXPECT_TRUE(stands("Sheet 2 of " + std::to_string(form.sheets.size())) || &sheet != &form.sheets[1]);
      ExpectNothingOverlaps(sheet);
    }
  }
  const Texts after = Print(1).Texts();
  EXPECT_EQ(std::count(after.begin(), after.end(), "Description"), 1) << "heads are told once";
  EXPECT_EQ(std::count(after.begin(), after.end(), "Added"), 400 - (before.size() - 8) / 4);
}

TEST_F(PrintTest, PollingRestsMeanwhile) {
  GoInteractive();
  rig_.printer.onPrint = [&] {
    EXPECT_FALSE(form_.InterTime.Enabled());
    EXPECT_FALSE(form_.mnuInter.Checked());
    EXPECT_TRUE(form_.mnuOff.Checked());
    EXPECT_EQ(rig_.Panel(3), "Interactive mode disabled ");
    EXPECT_EQ(form_.StatBar(3).Picture(), "Image2(2)");
  };
  for (MenuItem* command : {&form_.mnuPrint, &form_.mnuPreview}) {
    command->OperatorClick();
    EXPECT_TRUE(rig_.printer.jobs.back().finished);
    EXPECT_THAT(rig_.printer.jobs.back().forms, SizeIs(2)) << "one job";
    EXPECT_TRUE(form_.InterTime.Enabled() && form_.mnuInter.Checked() && !form_.mnuOff.Checked());
    EXPECT_EQ(rig_.Panel(3), "Interactive mode enabled ");
  }
  EXPECT_THAT(rig_.line.Sent(), IsEmpty());
}

TEST_F(PrintTest, APrinterThatFailsLeavesInteractiveModeAndAPreviewDoesNot) {
  rig_.printer.failAt = 1;
  for (MenuItem* command : {&form_.mnuPreview, &form_.mnuPrint}) {
    GoInteractive();
    command->OperatorClick();
    EXPECT_EQ(rig_.Boxes().back(), "482  Printer error");
    EXPECT_FALSE(rig_.printer.jobs.back().finished);
    EXPECT_EQ(form_.mnuInter.Checked(), command == &form_.mnuPreview);
    EXPECT_EQ(form_.InterTime.Enabled(), command == &form_.mnuPreview);
  }
}

TEST_F(PrintTest, ADocumentLeavesTheConfigurationsNameAlone) {
  rig_.fileDialog.FileName = "/setups/Stage 4.qcf";
  rig_.fileDialog.Filter = "the configurations'";
  rig_.fileDialog.CancelError = false;
  form_.mnuExport.OperatorClick();
  EXPECT_THAT(rig_.printer.jobs, IsEmpty()) << "cancelled";
  EXPECT_THAT(rig_.Boxes(), IsEmpty());
  EXPECT_EQ(rig_.fileDialog.shown.back().fileName, "Stage 4.pdf");
  EXPECT_TRUE(rig_.fileDialog.shown.back().flags & kOverwritePrompt);
  for (const char* chosen : {"/paper/x", "/paper/x.pdf", "/paper/x.PDF"}) {
    rig_.fileDialog.choices.emplace_back(chosen);
    form_.mnuExport.OperatorClick();
    const PrintRequest& request = rig_.printer.jobs.back().request;
    EXPECT_EQ(request.target, PrintTarget::kFile);
    EXPECT_EQ(request.file, chosen == std::string("/paper/x") ? "/paper/x.pdf" : chosen);
  }
  EXPECT_EQ(rig_.fileDialog.FileName, "/setups/Stage 4.qcf");
  EXPECT_EQ(rig_.fileDialog.Filter, "the configurations'");
  EXPECT_FALSE(rig_.fileDialog.CancelError);
}

TEST_F(PrintTest, ADocumentOfTheNameWithPdfBehindItIsNotOverwrittenUnasked) {
  const TempFolder folder;
  folder.Write("old.pdf", "");
  for (const bool replace : {false, true}) {
    rig_.fileDialog.choices.emplace_back(folder.File("old"));
    rig_.dialogs.answers.push_back(replace ? BoxAnswer::kYes : BoxAnswer::kNo);
    form_.mnuExport.OperatorClick();
    EXPECT_EQ(rig_.Boxes().back(), folder.File("old.pdf") + " already exists. Do you want to replace it?");
    EXPECT_THAT(rig_.printer.jobs, SizeIs(replace ? 1 : 0));
  }
}

}  // namespace
}  // namespace marlinset
