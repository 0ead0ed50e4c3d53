// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frm_splash.h"
#include "panels/splash.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

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
  for (const bool interactive : {false, true}) {
    rig.form.mnuInter.SetChecked(interactive);
    for (const int panel : {1, 2, 3, 4}) rig.form.StatBar(panel).SetText("Ack In");
    rig.pump.Pass(9999);
    EXPECT_EQ(rig.Panel(4), "Ack In");
    rig.pump.Pass(1);
    for (const int panel : {1, 2, 3, 4}) EXPECT_EQ(rig.Panel(panel), interactive ? "Ack In" : "");
    EXPECT_EQ(rig.form.StatBar(3).Picture(), "Image2(2)");
  }
}

TEST(InteractiveMode, IsOfferedAgainAfterARunThatHadIt) {
  ToolRig rig;
  rig.settings.SaveSetting("InMode", "On");
  rig.dialogs.answers = {BoxAnswer::kYes};
  ASSERT_TRUE(rig.tool.Start(""));
  EXPECT_EQ(rig.Boxes().front(), "Go Interactive? ");
  EXPECT_TRUE(rig.form.mnuInter.Checked());
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

constexpr const char* kShipped = SHIPPED_DATABASE_FOLDER "System Default Video.qcf";
constexpr const char* kStandards =
    "Video standard of the setup: 1080i/60\nVideo standard of the unit: 1080i/50";
constexpr const char* kOnAir = "\nAfter Yes the whole setup goes to the unit, on air.";

struct Question {
  const char* text;
  void (*bring)(ToolRig& rig);
  std::string facts;
  bool aboutTheUnit = false;
};

void SendToUnit(ToolRig& rig, bool manual) {
  rig.line.Unit().SetManual(manual);
  rig.line.Unit().SetStandard(5);
  rig.tool.form.bSConfig.OperatorClick();
}

TEST(Questions, CarryTheirFactsAndLoseTheirReasonWithTheUnit) {
  const Question kQuestions[] = {
      {"Video Standard will be changed!", [](ToolRig& rig) { SendToUnit(rig, true); },
       std::string(kStandards) + kOnAir, true},
      {"Video Standard Mismatch, Switch to Manual Mode?", [](ToolRig& rig) { SendToUnit(rig, false); },
       std::string(kStandards) + kOnAir, true},
      {"Video Standard from box changed. Change 7340-Marlinset Video Standard?",
       [](ToolRig& rig) {
         rig.tool.form.mnuInter.OperatorClick();
         rig.line.Unit().SetStandard(5);
         rig.pump.Pass(5000);
       },
       kStandards, true},
      {"Go Interactive? ",
       [](ToolRig& rig) {
         rig.settings.SaveSetting("InMode", "On");
         rig.tool.endsOfRun.OfferInteractiveMode();
       },
       std::string(kOnAir + 1) + "\nSetup: " + kShipped, true},
      {"Save changes before opening a new configuration?",
       [](ToolRig& rig) {
         rig.tool.form.mnuInter.OperatorClick();
         rig.tool.variables.ConfigSaved = false;
         rig.tool.fileCommands.OpenNamed("/shelf/b.qcf");
       },
       std::string("Not saved: ") + kShipped +
           "\nTo be opened: /shelf/b.qcf\nAfter either answer the whole setup goes to the unit, on air."},
      {"Save Changes before Exit?",
       [](ToolRig& rig) {
         rig.fileDialog.FileName.clear();
         rig.tool.variables.ConfigSaved = false;
         rig.tool.form.mnuExit.OperatorClick();
       },
       "Not saved: \"System Default Video\", in no file yet"}};
  for (const Question& question : kQuestions) {
    SCOPED_TRACE(question.text);
    ToolRig rig{UnitSettings{.standard = 4}};
    ASSERT_TRUE(rig.tool.Start(""));
    std::vector<std::string> facts;
    rig.dialogs.onShow = [&](const MessageBox& box) {
      if (box.text != question.text) return FakeDialogs::Default(box.buttons);
      facts.push_back(box.remedy);
      EXPECT_EQ(bool(box.holds), question.aboutTheUnit);
      if (!box.holds) return BoxAnswer::kNo;
      EXPECT_TRUE(box.holds());
      rig.line.SetPorts({});
      if (rig.line.PortOpen()) rig.line.Vanish();
      EXPECT_FALSE(box.holds());
      return BoxAnswer::kNo;
    };
    question.bring(rig);
    EXPECT_THAT(facts, ElementsAre(question.facts));
    EXPECT_THAT(rig.Boxes(), Not(testing::Contains(testing::StartsWith("Change Input Source"))))
        << "no advice about a unit that has gone";
  }
}

}  // namespace
}  // namespace marlinset
