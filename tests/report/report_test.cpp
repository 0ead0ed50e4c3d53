// SPDX-License-Identifier: GPL-3.0-or-later

#include <algorithm>

#include "tests/support/temp_folder.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::SizeIs;
using testing::StartsWith;
using Texts = std::vector<std::string>;

/// Texts and boxes lie on the sheet, none on another.
void ExpectNothingOverlaps(const PrintSheet& sheet) {
  constexpr double kTouch = 1e-6;
  PrintSheet before;
  for (const PrintItem& a : sheet) {
    EXPECT_TRUE(a.x >= 0 && a.y >= 0 && a.x + a.width <= kSheetWidth + kTouch &&
                a.y + a.height <= kSheetHeight + kTouch)
        << a.text;
    if (a.kind != PrintKind::kText && a.kind != PrintKind::kCheck) continue;
    for (const PrintItem& b : before) {
      EXPECT_FALSE(a.x + kTouch < b.x + b.width && b.x + kTouch < a.x + a.width &&
                   a.y + kTouch < b.y + b.height && b.y + kTouch < a.y + a.height)
          << a.text << " on " << b.text;
    }
    before.push_back(a);
  }
}

class ReportTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(rig_.tool.Start("TEST")); }

  ToolRig rig_;
  FrmStart& form_ = rig_.form;
  Variables& vars_ = rig_.vars;
};

class Printing : public ReportTest {
 protected:
  const PrintedForm& Print(std::size_t page = 0) {
    rig_.printer.jobs.clear();
    form_.mnuPrint.OperatorClick();
    return rig_.printer.jobs.at(0).forms.at(page);
  }
};

TEST_F(Printing, EveryValueStandsInItsPlace) {
  // A form without rules takes any text.
  FrmStart form(rig_.pump, rig_.guard);
  PrintCommand command(rig_.tool.platform, vars_, form);
  form.comVS.OperatorType("a standard");
  for (int i = 0; i < 5; ++i) {
    form.comTB(i).OperatorType("t" + std::to_string(i));
    form.ComUB(i).OperatorType("u" + std::to_string(i));
  }
  for (int i = 0; i < 8; ++i) form.tLineNumber(i).SetText(std::to_string(100 + i));
  for (const int i : form.ComWin.Indices()) form.ComWin(i).OperatorType("w" + std::to_string(i));
  for (const int i : form.ComDownConv.Indices()) form.ComDownConv(i).OperatorType("dc" + std::to_string(i));
  form.oVITC(2).SetValue(true);
  form.chEnable.SetValue(1);
  form.chDups.SetValue(1);
  form.tWinMess.SetText("Roll 3");
  form.mnuCom1.SetChecked(false);
  form.mnuCom3.SetChecked(true);
  form.StatBar(FrmStart::kModelPanel).SetText("HD7340Q");
  form.mnuPrint.OperatorClick();
  EXPECT_EQ(rig_.printer.jobs.at(0).request.title, form.Caption());
  const PrintedForm& page = rig_.printer.jobs.at(0).forms.at(0);
  ExpectNothingOverlaps(page.sheets.front());
  const std::string text =
      form.Caption() +
      "|21/11/2026 14:30|Page 1 of 2|Video Standard:|a standard|VITC Mode:|3 Line|Com Port:|3|"
      "Inputs|Time Bits:|t0|User Bits:|u0|"
      "Active Outputs|[ ]|VITC Enabled|[x]|Encode Duplicate VITC Lines|[ ]|Synchronize Line Numbers|"
      "LTC|Time Bits:|t1|User Bits:|u1|VITC 1st Line|Time Bits:|t2|User Bits:|u2|Line Numbers|101|105|"
      "VITC 2nd Line|Time Bits:|t3|User Bits:|u3|Line Numbers|102|106|"
      "VITC 3rd Line|Time Bits:|t4|User Bits:|u4|Line Numbers|103|107|"
      "White Flag|Line Number|100|[x]|Enabled|Attributes|Style:|w2|Font Size:|w3|"
      "Virtual Slate|Mode:|w1|Duration (frs):|104|[ ]|Preview|Text Window Message|Roll 3|"
      "Down Converter|Aspect Ratio:|w0|Processing Mode:|dc0|V. Filter:|dc1|H. Filter:|dc2|"
      "SDI Program Out|w4|Active Window Position|";
  std::string all;
  for (const std::string& part : page.Texts()) all += part + "|";
  EXPECT_THAT(all, StartsWith(text));
}

TEST_F(Printing, HiddenWindowsLeaveNoGap) {
  form_.lName(1).SetVisible(false);
  const PrintedForm form = Print();
  const PrintSheet& sheet = form.sheets.front();
  const auto nameOf = [&](int row) {
    return std::find_if(sheet.begin(), sheet.end(),
                        [&](const PrintItem& item) { return item.text == form_.lName(row).Caption(); });
  };
  EXPECT_EQ(nameOf(1), sheet.end());
  EXPECT_DOUBLE_EQ(nameOf(2)->y, nameOf(0)->y + nameOf(0)->height);
}

TEST_F(Printing, LongListsGoOnOnFurtherSheets) {
  vars_.SystemParameters.resize(400, {.Class = 9, .Parameter = 1, .Description = "Added", .Value = 0});
  vars_.CharWindows.resize(80, vars_.CharWindows.front());
  for (const auto& [page, sheets, head] : {std::tuple(0U, 3U, "Dbl Height"), {1U, 9U, "Description"}}) {
    const PrintedForm form = Print(page);
    ASSERT_EQ(form.sheets.size(), sheets);
    for (std::size_t i = 0; i < sheets; ++i) {
      Texts texts;
      for (const PrintItem& item : form.sheets[i]) texts.push_back(item.text);
      const std::string sheet = "Sheet " + std::to_string(i + 1) + " of " + std::to_string(sheets);
      EXPECT_THAT(texts, IsSupersetOf({form_.Caption(), std::string(head), sheet}));
      ExpectNothingOverlaps(form.sheets[i]);
    }
    const Texts all = form.Texts();
    EXPECT_EQ(std::count(all.begin(), all.end(), head), 1) << "heads are told once";
    EXPECT_GT(all.size(), 640U) << "rows are";
  }
}

TEST_F(Printing, PollingRestsMeanwhileAndAfterAPrinterThatFailed) {
  bool fails = false;
  rig_.printer.onPrint = [&] {
    if (fails && rig_.printer.jobs.back().forms.size() == 1) throw PrinterError();
    EXPECT_TRUE(!form_.InterTime.Enabled() && !form_.mnuInter.Checked() && form_.mnuOff.Checked());
    EXPECT_EQ(form_.StatBar(3).Picture(), "Image2(2)");
  };
  rig_.line.SetPortOpen(true);
  for (const bool broken : {false, true}) {
    fails = broken;
    for (MenuItem* command : {&form_.mnuPrint, &form_.mnuPreview}) {
      form_.mnuInter.SetChecked(true);
      form_.mnuOff.SetChecked(false);
      form_.InterTime.SetEnabled(true);
      command->OperatorClick();
      EXPECT_EQ(rig_.printer.jobs.back().finished, !fails);
      const bool resumes = !fails || command == &form_.mnuPreview;
      EXPECT_TRUE(form_.InterTime.Enabled() == resumes && form_.mnuInter.Checked() == resumes);
      EXPECT_EQ(rig_.Panel(3), resumes ? "Interactive mode enabled " : "Interactive mode disabled ");
    }
  }
  EXPECT_EQ(rig_.Boxes(), Texts(2, "482  Printer error"));
  EXPECT_THAT(rig_.line.Sent(), IsEmpty());
}

TEST_F(Printing, ADocumentLeavesTheConfigurationsNameAlone) {
  FakeFileDialog& dialog = rig_.fileDialog;
  dialog.FileName = "/setups/Stage 4.qcf";
  form_.mnuExport.OperatorClick();
  EXPECT_TRUE(rig_.printer.jobs.empty() && rig_.Boxes().empty()) << "cancelled";
  EXPECT_EQ(dialog.shown.back().fileName, "Stage 4.pdf");
  EXPECT_TRUE(dialog.shown.back().flags & kOverwritePrompt);
  const TempFolder folder;
  const std::string old = folder.Write("old.pdf", "");
  rig_.dialogs.answers = {BoxAnswer::kNo, BoxAnswer::kYes};
  for (const char* chosen : {"x", "x.PDF", "old", "old"}) {
    dialog.choices.emplace_back(folder.File(chosen));
    form_.mnuExport.OperatorClick();
  }
  Texts written;
  for (const auto& job : rig_.printer.jobs) written.push_back(job.request.file);
  EXPECT_THAT(written, ElementsAre(folder.File("x.pdf"), folder.File("x.PDF"), old));
  EXPECT_EQ(rig_.printer.jobs.back().request.target, PrintTarget::kFile);
  EXPECT_EQ(rig_.Boxes(), Texts(2, old + " already exists. Do you want to replace it?"));
  EXPECT_EQ(dialog.FileName, "/setups/Stage 4.qcf");
}

class AboutTest : public ReportTest {
 protected:
  void GoInteractive() {
    form_.bGetID.Press();
    form_.mnuInter.SetChecked(true);
    form_.mnuOff.SetChecked(false);
    rig_.line.ClearSent();
  }
  bool Active() const { return vars_.MainFormActive; }

  FrmAbout& about_ = rig_.tool.about.form;
};

TEST_F(AboutTest, TellsWhatIsRunningAndPausesPolling) {
  form_.mnuAbout.OperatorClick();
  EXPECT_EQ(about_.Caption(), "About 7340 Marlinset");
  EXPECT_EQ(about_.lblVersion.Caption(), "Release " MARLINSET_VERSION);
  EXPECT_EQ(about_.lblDatabase.Caption(), "Database Version: " + rig_.tool.database.DatabaseVersion());
  EXPECT_EQ(about_.lblFirmWare.Caption(), "FirmWare Version: ####");
  EXPECT_THAT(rig_.line.Sent(), IsEmpty());
  EXPECT_FALSE(Active());
  rig_.tool.SetActive(true);  // back from another program, to the box
  EXPECT_FALSE(Active());
  form_.mnuAbout.OperatorClick();
  EXPECT_THAT(rig_.dialogs.forms, ElementsAre(&about_)) << "one box at a time";
  about_.cmdSysInfo.OperatorClick();
  EXPECT_THAT(rig_.Boxes(), ElementsAre("System Information Is Unavailable At This Time"));
  about_.cmdOK.OperatorClick();
  EXPECT_TRUE(Active() && !about_.Visible());
  form_.mnuAbout.OperatorClick();
  about_.SetVisible(false);  // the cross
  EXPECT_TRUE(Active());
}

TEST_F(AboutTest, AsksTheUnitInInteractiveModeAndOpensOnceItIsThrough) {
  GoInteractive();
  form_.mnuAbout.OperatorClick();
  EXPECT_EQ(about_.lblFirmWare.Caption(), "FirmWare Version: MARLIN40 020E00");
  EXPECT_THAT(rig_.line.Sent(), SizeIs(1));
  about_.cmdOK.OperatorClick();

  // What ends the query to a silent unit, and whether the box opens then.
  const std::pair<std::function<void()>, bool> ends[] = {{[&] { rig_.tool.ports.ClosePort(); }, true},
                                                         {[&] { about_.cmdOK.Press(); }, false},
                                                         {[&] { rig_.pump.End(); }, false}};
  for (const auto& [act, opens] : ends) {
    GoInteractive();
    rig_.line.Unit().Faults().mute = true;
    rig_.dialogs.forms.clear();
    const std::int64_t end = rig_.pump.Now() + 5500;
    rig_.pump.At(end, [&] {
      EXPECT_FALSE(about_.Visible() || Active());
      form_.mnuAbout.OperatorClick();
      act();
    });
    form_.mnuAbout.OperatorClick();
    EXPECT_EQ(rig_.pump.Now(), end);
    EXPECT_EQ(about_.lblFirmWare.Caption(), "FirmWare Version: ");
    EXPECT_TRUE(about_.Visible() == opens && Active() == !opens && !vars_.WaitFullReply);
    EXPECT_THAT(rig_.dialogs.forms, SizeIs(opens ? 1 : 0));
    about_.cmdOK.OperatorClick();
    rig_.line.Unit().Faults().mute = false;
  }
}

TEST_F(AboutTest, LeavesTheMainWindowActiveWhenItsDatabaseIsGone) {
  vars_.DatabasePath = "/nowhere/shotsys.mdb";
  form_.mnuAbout.OperatorClick();
  EXPECT_THAT(rig_.Boxes(), ElementsAre(StartsWith("3024  ")));
  EXPECT_TRUE(Active());
}

}  // namespace
}  // namespace marlinset
