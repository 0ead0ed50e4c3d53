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

struct ReportTest : testing::Test, ToolRig {
  void SetUp() override { ASSERT_TRUE(tool.Start("TEST")); }
};

struct Printing : ReportTest {
  const PrintedForm& Print(std::size_t page = 0) {
    printer.jobs.clear();
    form.mnuPrint.OperatorClick();
    return printer.jobs.at(0).forms.at(page);
  }
};

TEST_F(Printing, EveryValueStandsInItsPlace) {
  // A form without rules takes any text.
  FrmStart bare(pump, guard);
  PrintCommand command(tool.platform, vars, bare);
  bare.comVS.OperatorType("a standard");
  for (int i = 0; i < 5; ++i) {
    bare.comTB(i).OperatorType("t" + std::to_string(i));
    bare.ComUB(i).OperatorType("u" + std::to_string(i));
  }
  for (int i = 0; i < 8; ++i) bare.tLineNumber(i).SetText(std::to_string(100 + i));
  for (const int i : bare.ComWin.Indices()) bare.ComWin(i).OperatorType("w" + std::to_string(i));
  for (const int i : bare.ComDownConv.Indices()) bare.ComDownConv(i).OperatorType("dc" + std::to_string(i));
  bare.oVITC(2).SetValue(true);
  bare.chEnable.SetValue(1);
  bare.chDups.SetValue(1);
  bare.tWinMess.SetText("Roll 3");
  bare.mnuCom1.SetChecked(false);
  bare.mnuCom3.SetChecked(true);
  bare.StatBar(FrmStart::kModelPanel).SetText("HD7340Q");
  bare.mnuPrint.OperatorClick();
  EXPECT_EQ(printer.jobs.at(0).request.title, bare.Caption());
  const PrintedForm& page = printer.jobs.at(0).forms.at(0);
  ExpectNothingOverlaps(page.sheets.front());
  const std::string text =
      bare.Caption() +
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
  form.lName(1).SetVisible(false);
  const PrintedForm page = Print();
  const PrintSheet& sheet = page.sheets.front();
  const auto nameOf = [&](int row) {
    return std::find_if(sheet.begin(), sheet.end(),
                        [&](const PrintItem& item) { return item.text == form.lName(row).Caption(); });
  };
  EXPECT_EQ(nameOf(1), sheet.end());
  EXPECT_DOUBLE_EQ(nameOf(2)->y, nameOf(0)->y + nameOf(0)->height);
}

TEST_F(Printing, LongListsGoOnOnFurtherSheets) {
  vars.SystemParameters.resize(400, {.Class = 9, .Parameter = 1, .Description = "Added", .Value = 0});
  vars.CharWindows.resize(80, vars.CharWindows.front());
  for (const auto& [number, sheets, head] : {std::tuple(0U, 3U, "Dbl Height"), {1U, 9U, "Description"}}) {
    const PrintedForm page = Print(number);
    ASSERT_EQ(page.sheets.size(), sheets);
    for (std::size_t i = 0; i < sheets; ++i) {
      Texts texts;
      for (const PrintItem& item : page.sheets[i]) texts.push_back(item.text);
      const std::string sheet = "Sheet " + std::to_string(i + 1) + " of " + std::to_string(sheets);
      EXPECT_THAT(texts, IsSupersetOf({form.Caption(), std::string(head), sheet}));
      ExpectNothingOverlaps(page.sheets[i]);
    }
    const Texts all = page.Texts();
    EXPECT_EQ(std::count(all.begin(), all.end(), head), 1) << "heads are told once";
    EXPECT_GT(all.size(), 640U) << "rows are";
  }
}

TEST_F(Printing, PollingRestsMeanwhileAndAfterAPrinterThatFailed) {
  bool fails = false;
  printer.onPrint = [&] {
    if (fails && printer.jobs.back().forms.size() == 1) throw PrinterError();
    EXPECT_TRUE(!form.InterTime.Enabled() && !form.mnuInter.Checked() && form.mnuOff.Checked());
    EXPECT_EQ(form.StatBar(3).Picture(), "Image2(2)");
  };
  line.SetPortOpen(true);
  for (const bool broken : {false, true}) {
    fails = broken;
    for (MenuItem* command : {&form.mnuPrint, &form.mnuPreview}) {
      form.mnuInter.SetChecked(true);
      form.mnuOff.SetChecked(false);
      form.InterTime.SetEnabled(true);
      command->OperatorClick();
      EXPECT_EQ(printer.jobs.back().finished, !fails);
      const bool resumes = !fails || command == &form.mnuPreview;
      EXPECT_TRUE(form.InterTime.Enabled() == resumes && form.mnuInter.Checked() == resumes);
      EXPECT_EQ(Panel(3), resumes ? "Interactive mode enabled " : "Interactive mode disabled ");
    }
  }
  EXPECT_EQ(Boxes(), Texts(2, "482  Printer error"));
  EXPECT_THAT(line.Sent(), IsEmpty());
}

TEST_F(Printing, ADocumentLeavesTheConfigurationsNameAlone) {
  FakeFileDialog& dialog = fileDialog;
  dialog.FileName = "/setups/Stage 4.qcf";
  form.mnuExport.OperatorClick();
  EXPECT_TRUE(printer.jobs.empty() && Boxes().empty()) << "cancelled";
  EXPECT_EQ(dialog.shown.back().fileName, "Stage 4.pdf");
  EXPECT_TRUE(dialog.shown.back().flags & kOverwritePrompt);
  const TempFolder folder;
  const std::string old = folder.Write("old.pdf", "");
  dialogs.answers = {BoxAnswer::kNo, BoxAnswer::kYes};
  for (const char* chosen : {"x", "x.PDF", "old", "old"}) {
    dialog.choices.emplace_back(folder.File(chosen));
    form.mnuExport.OperatorClick();
  }
  Texts written;
  for (const auto& job : printer.jobs) written.push_back(job.request.file);
  EXPECT_THAT(written, ElementsAre(folder.File("x.pdf"), folder.File("x.PDF"), old));
  EXPECT_EQ(printer.jobs.back().request.target, PrintTarget::kFile);
  EXPECT_EQ(Boxes(), Texts(2, old + " already exists. Do you want to replace it?"));
  EXPECT_EQ(dialog.FileName, "/setups/Stage 4.qcf");
}

struct AboutTest : ReportTest {
  void GoInteractive() {
    form.bGetID.Press();
    form.mnuInter.SetChecked(true);
    form.mnuOff.SetChecked(false);
    line.ClearSent();
  }
  bool Active() const { return vars.MainFormActive; }

  FrmAbout& about = tool.about.form;
};

TEST_F(AboutTest, TellsWhatIsRunning) {
  form.mnuAbout.OperatorClick();
  EXPECT_EQ(about.Caption(), "About 7340 Marlinset");
  EXPECT_EQ(about.lblVersion.Caption(), "Release " MARLINSET_VERSION);
  EXPECT_EQ(about.lblDatabase.Caption(), "Database Version: " + tool.database.DatabaseVersion());
  EXPECT_THAT(line.Sent(), IsEmpty());
  about.SetVisible(false);  // the cross
  EXPECT_TRUE(Active());
}

TEST_F(AboutTest, AsksTheUnitInInteractiveModeAndOpensOnceItIsThrough) {
  GoInteractive();
  form.mnuAbout.OperatorClick();
  EXPECT_EQ(about.lblFirmWare.Caption(), "FirmWare Version: MARLIN40 020E00");
  EXPECT_THAT(line.Sent(), SizeIs(1));
  about.cmdOK.OperatorClick();

  // What ends the query to a silent unit, and whether the box opens then.
  const std::pair<std::function<void()>, bool> ends[] = {{[&] { tool.ports.ClosePort(); }, true},
                                                         {[&] { about.cmdOK.Press(); }, false},
                                                         {[&] { pump.End(); }, false}};
  for (const auto& [act, opens] : ends) {
    GoInteractive();
    line.Unit().Faults().mute = true;
    dialogs.forms.clear();
    const std::int64_t end = pump.Now() + 5500;
    pump.At(end, [&, act = act] {
      EXPECT_FALSE(about.Visible() || Active());
      form.mnuAbout.OperatorClick();
      act();
    });
    form.mnuAbout.OperatorClick();
    EXPECT_EQ(pump.Now(), end);
    EXPECT_EQ(about.lblFirmWare.Caption(), "FirmWare Version: ");
    EXPECT_TRUE(about.Visible() == opens && Active() == !opens && !vars.WaitFullReply);
    EXPECT_THAT(dialogs.forms, SizeIs(opens ? 1 : 0));
    about.cmdOK.OperatorClick();
    line.Unit().Faults().mute = false;
  }
}

TEST_F(AboutTest, LeavesTheMainWindowActiveWhenItsDatabaseIsGone) {
  vars.DatabasePath = "/nowhere/shotsys.mdb";
  form.mnuAbout.OperatorClick();
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith("3024  ")));
  EXPECT_TRUE(Active());
}

}  // namespace
}  // namespace marlinset
