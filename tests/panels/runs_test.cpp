// SPDX-License-Identifier: GPL-3.0-or-later
// How a run of the tool begins and ends.
#include <gmock/gmock.h>

#include <array>
#include <filesystem>

#include "core/frm_splash.h"
#include "panels/splash.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kShipped = SHIPPED_DATABASE_FOLDER "System Default Video.qcf";

TEST(StartUp, WithoutSettingsOpensTheShippedConfiguration) {
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start(""));
  const FrmStart& form = rig.tool.form;
  EXPECT_EQ(form.Caption(), "7340 Marlinset - System Default Video");
  EXPECT_EQ(rig.Panel(4), "File System Default Video Loaded ");
  EXPECT_TRUE(rig.tool.variables.ConfigSaved && rig.tool.variables.MainFormActive);
  EXPECT_EQ(form.StatBar(3).Picture(), "Image2(1)");
  EXPECT_FALSE(form.mnuContents.Enabled() || form.bGetID.Enabled());
  for (const int view : form.oView.Indices()) EXPECT_EQ(form.oView(view).Visible(), view != 4) << view;
  EXPECT_EQ(rig.tool.variables.PortList, "1234");
  EXPECT_TRUE(form.mnuCom1.Checked() && form.mnuOff.Checked() && !form.mnuInter.Checked());
  EXPECT_TRUE(form.mnuCharOn.Checked() && !form.mnuCharOff.Checked());
}

TEST(StartUp, RestoresSettingsAndFallsBackWhereTheyAreNoUse) {
  struct Case {
    const char *page, *timer, *model, *port, *tools;
    int view;
    const char* timeOut;
    bool modelQ;
    int portUsed;
    bool toolsShown;
  };
  for (const Case& c : {Case{"3", "4", "HD7340Q", "3", "1", 3, "60000 mnu60", true, 3, true},
                        Case{"5", "5", "HD7340", "2", "0", 5, "0 mnuNever", false, 2, false},
                        Case{"1", "2", "HD7340", "1", "0", 1, "20000 mnu20", false, 1, false},
                        Case{"2", "3", "HD7340", "1", "0", 2, "30000 mnu30", false, 1, false},
                        Case{"6", "0", "SD7340", "COM2", "yes", 0, "10000 mnu10", false, 1, false}}) {
    SCOPED_TRACE(c.page);
    ToolRig rig;
    rig.settings.values = {
        {"Page", c.page}, {"Timer", c.timer}, {"HardwareType", c.model}, {"Comm", c.port}, {"comd", c.tools}};
    ASSERT_TRUE(rig.tool.Start(""));
    FrmStart& form = rig.tool.form;
    const std::array<const Frame*, 6> panels = {&form.fCodes,      &form.fOutputs, &form.fWindows,
                                                &form.fParameters, &form.fOptions, &form.fDownConverter};
    for (int view = 0; view < 6; ++view) EXPECT_EQ(At(panels, view)->Visible(), view == c.view) << view;
    std::string timeOut = form.tClearStat.Enabled() ? std::to_string(form.tClearStat.Interval()) : "0";
    for (const MenuItem* item : {&form.mnu10, &form.mnu20, &form.mnu30, &form.mnu60, &form.mnuNever}) {
      if (item->Checked()) timeOut += " " + item->Name();
    }
    EXPECT_EQ(timeOut, c.timeOut);
    EXPECT_TRUE((c.modelQ ? form.mnuHD7340Q : form.mnuHD7340).Checked());
    for (const Frame* frame : {&form.fFilters, &form.fProcessingMode, &form.fSDIProgramOut}) {
      EXPECT_EQ(frame->Visible(), c.modelQ) << frame->Name();
    }
    EXPECT_EQ(rig.tool.variables.ComPortNumber, c.portUsed);
    for (const bool shown : {c.toolsShown, !c.toolsShown}) {
      EXPECT_TRUE(form.mnuCommD.Checked() == shown && form.tInput.Visible() == shown);
      for (const Button* tool : {&form.bGetID, &form.bSend, &form.bBroad}) {
        EXPECT_TRUE(tool->Visible() == shown && tool->Enabled() == shown) << tool->Name();
      }
      form.mnuCommD.OperatorClick();
    }
  }
}

TEST(StartUp, TheCommandTextNamesAModeByNameOrId) {
  for (const std::string text : {"KeyKode Accuracy Test", "KEYK", "keyk"}) {
    ToolRig rig;
    rig.settings.SaveSetting("Default", "/nowhere/Stage 4.qcf");
    ASSERT_TRUE(rig.tool.Start(text)) << text;
    EXPECT_EQ(rig.tool.variables.OperatingMode,
              text == "keyk" ? "HD Video Downconvert" : "KeyKode Accuracy Test");
    EXPECT_EQ(rig.tool.variables.CurrentFile, "Unsaved") << "and no file is opened";
    EXPECT_THAT(rig.Boxes(), IsEmpty());
  }
}

TEST(Splash, StandsFourSecondsAfterTheLoadOrUntilItIsSkipped) {
  for (const bool skipped : {false, true}) {
    ToolRig rig;
    FrmSplash form(rig.pump, rig.guard);
    std::vector<std::int64_t> shownAt;
    Splash splash(
        form,
        [&] {
          EXPECT_TRUE(form.Visible());
          splash.Skip();  // too early: there is nothing to show yet
          rig.pump.Pass(6000);
        },
        [&] { shownAt.push_back(rig.pump.Now()); });
    splash.Load();
    if (skipped) splash.Skip();
    rig.pump.Pass(10000);
    EXPECT_THAT(shownAt, ElementsAre(skipped ? 6000 : 10000));
    EXPECT_FALSE(form.Visible());
  }
}

TEST(StatusTimeOut, ClearsThePanelsOffLineOnly) {
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start(""));
  FrmStart& form = rig.tool.form;
  for (const int panel : {1, 2, 3, 4}) form.StatBar(panel).SetText("Ack In");
  rig.pump.Pass(9999);
  EXPECT_EQ(rig.Panel(4), "Ack In");
  rig.pump.Pass(1);
  EXPECT_EQ(rig.Panel(1) + rig.Panel(2) + rig.Panel(3) + rig.Panel(4), "");
  EXPECT_EQ(form.StatBar(3).Picture(), "Image2(2)");
  form.StatBar(4).SetText("HD7340");
  form.mnuInter.SetChecked(true);
  rig.pump.Pass(20000);
  EXPECT_EQ(rig.Panel(4), "HD7340");
}

TEST(DefaultFile, ThatIsMissingIsAskedForAndLeavesAnUnsavedConfiguration) {
  const std::string name = "/nowhere/Stage 4.qcf";
  for (const BoxAnswer answer : {BoxAnswer::kNo, BoxAnswer::kYes}) {
    ToolRig rig;
    rig.settings.SaveSetting("Default", name);
    rig.dialogs.answers = {answer};
    rig.fileDialog.choices = {kShipped};
    ASSERT_TRUE(rig.tool.Start(""));
    EXPECT_THAT(
        rig.Boxes(),
        ElementsAre("Default file " + name +
                    " was not found.\r\nClick 'Yes' to browse for a file to load, or click 'No' to load the "
                    "default settings from the database?"));
    EXPECT_EQ(rig.fileDialog.shown.size(), answer == BoxAnswer::kYes ? 1U : 0U);
    EXPECT_FALSE(rig.tool.variables.ConfigSaved);
    rig.tool.form.mnuExit.OperatorClick();
    const bool asked = testing::Value(rig.Boxes(), Contains("Restart next time with this configuration?"));
    EXPECT_EQ(asked, answer == BoxAnswer::kYes) << "the name stays when nothing was opened";
  }
}

TEST(InteractiveMode, IsOfferedAgainAfterARunThatHadIt) {
  for (const BoxAnswer answer : {BoxAnswer::kNo, BoxAnswer::kYes}) {
    ToolRig rig;
    rig.settings.SaveSetting("InMode", "On");
    rig.dialogs.answers = {answer};
    ASSERT_TRUE(rig.tool.Start(""));
    EXPECT_EQ(rig.Boxes().front(), "Go Interactive? ");
    EXPECT_EQ(rig.tool.form.mnuInter.Checked(), answer == BoxAnswer::kYes);
  }
}

TEST(CloseRequest, AsksAndRemembersAndEndsWhateverTheAnswers) {
  const TempFolder folder;
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start(""));
  FrmStart& form = rig.tool.form;
  form.bOpen.Press();
  form.oView(3).OperatorClick();
  form.mnu30.OperatorClick();
  form.mnuCommD.OperatorClick();
  form.mnuHD7340Q.OperatorClick();
  form.NotePlace({100, 200, 9000, 6000});
  rig.tool.variables.ConfigSaved = false;
  rig.dialogs.onShow = [&](const MessageBox&) {
    if (rig.dialogs.shown.size() < 9) form.mnuExit.OperatorClick();  // once more, while it asks
    return BoxAnswer::kYes;
  };
  rig.fileDialog.choices = {folder.File("Stage 4.qcf")};
  form.mnuExit.OperatorClick();
  EXPECT_THAT(rig.Boxes(),
              ElementsAre("Save Changes before Exit?", "Restart next time with this configuration?"));
  EXPECT_FALSE(rig.line.PortOpen() || form.Visible());
  EXPECT_TRUE(rig.pump.Ending());
  const std::vector<std::pair<std::string, std::string>> kRemembered = {
      {"Height", "6000"},
      {"Width", "9000"},
      {"Top", "200"},
      {"Left", "100"},
      {"Page", "3"},
      {"Timer", "3"},
      {"ComD", "1"},
      {"HardwareType", "HD7340Q"},
      {"AppVersion", MARLINSET_VERSION},
      {"DBVersion", rig.tool.database.DatabaseVersion()},
      {"Default", folder.File("Stage 4.qcf")}};
  EXPECT_THAT(rig.settings.values, testing::IsSupersetOf(kRemembered));

  ToolRig next;
  next.settings.SaveSetting("Default", folder.File("Stage 4.qcf"));
  ASSERT_TRUE(next.tool.Start(""));
  EXPECT_EQ(next.tool.variables.CurrentFile, "Stage 4");
  next.tool.form.oView(5).OperatorClick();
  next.tool.form.mnuExit.OperatorClick();
  EXPECT_THAT(next.Boxes(), IsEmpty()) << "nothing to ask";
  EXPECT_EQ(next.settings.GetSetting("Page", "none"), "none") << "only views 1 to 4 are remembered";
}

TEST(CloseRequest, EndsARunningSendWithoutAWord) {
  ToolRig rig{UnitSettings{.standard = 4}};
  ASSERT_TRUE(rig.tool.Start("HDDC"));
  rig.tool.commands.MessageSent.Connect([&](const SentMessage& message) {
    if (std::string(message.command) != "cmdVitcLines") return;
    rig.dialogs.shown.clear();
    rig.line.Unit().Faults().mute = true;
    rig.pump.At(rig.pump.Now() + 5, [&] { rig.tool.form.mnuExit.OperatorClick(); });
  });
  rig.dialogs.answers = {BoxAnswer::kYes};  // should the standards differ
  rig.tool.form.bSConfig.Press();
  EXPECT_EQ(rig.tool.wholeSend.Result().end, SendEnd::kStopped);
  EXPECT_THAT(rig.Boxes(), IsEmpty());
  EXPECT_TRUE(rig.pump.Ending());
  EXPECT_FALSE(rig.line.PortOpen());
}

}  // namespace
}  // namespace marlinset
