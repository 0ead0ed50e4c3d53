// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/temp_folder.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::Not;

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
       "Not saved: \"System Default Video\", in no file yet"},
      {"Restart next time with this configuration?",
       [](ToolRig& rig) { rig.tool.form.mnuExit.OperatorClick(); },
       std::string("Next start: ") + kShipped + "\nSo far: " + kShipped}};
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
