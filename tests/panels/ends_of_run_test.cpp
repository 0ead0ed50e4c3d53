// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/ends_of_run.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "tests/support/temp_folder.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* kShipped = SHIPPED_DATABASE_FOLDER "System Default Video.qcf";

TEST(DefaultFile, IsOpenedUnlessAModeIsNamed) {
  const TempFolder folder;
  std::filesystem::copy_file(kShipped, folder.File("Stage 4.qcf"));
  for (const char* command : {"", "KEYK"}) {
    ToolRig rig;
    rig.settings.SaveSetting("Default", folder.File("Stage 4.qcf"));
    ASSERT_TRUE(rig.tool.Start(command));
    const bool opened = *command == 0;
    EXPECT_EQ(rig.tool.variables.CurrentFile, opened ? "Stage 4" : "Unsaved");
    EXPECT_EQ(rig.fileDialog.FileName, opened ? folder.File("Stage 4.qcf") : "");
    EXPECT_TRUE(rig.tool.variables.ConfigSaved);
  }
}

TEST(DefaultFile, ThatIsMissingIsAskedForAndLeavesAnUnsavedConfiguration) {
  for (const auto& [name, answer] : {std::pair{"/nowhere/Stage 4.qcf", BoxAnswer::kNo},
                                     {"/nowhere/Stage 4.qcf", BoxAnswer::kYes},
                                     {"", BoxAnswer::kYes}}) {
    ToolRig rig;
    rig.settings.SaveSetting("Default", name);
    rig.dialogs.answers = {answer};
    rig.fileDialog.choices = {kShipped};
    ASSERT_TRUE(rig.tool.Start(""));
    EXPECT_THAT(
        rig.Boxes(),
        ElementsAre("Default file " + std::string(name) +
                    " was not found.\r\nClick 'Yes' to browse for a file to load, or click 'No' to load the "
                    "default settings from the database?"));
    EXPECT_EQ(rig.fileDialog.shown.size(), answer == BoxAnswer::kYes ? 1U : 0U);
    EXPECT_FALSE(rig.tool.variables.ConfigSaved);
    rig.tool.form.mnuExit.OperatorClick();
    const bool asked = *name != 0 && answer == BoxAnswer::kYes;
    EXPECT_EQ(testing::Value(rig.Boxes(), Contains("Restart next time with this configuration?")), asked)
        << "an empty name stays as it is, and so does one when nothing was opened";
  }
}

TEST(InteractiveMode, IsOfferedAgainAfterARunThatHadIt) {
  for (const BoxAnswer answer : {BoxAnswer::kNo, BoxAnswer::kYes}) {
    ToolRig rig;
    rig.settings.SaveSetting("InMode", "On");
    rig.dialogs.answers = {answer};
    rig.tool.ports.NamePorts(std::vector<std::string>{"", "", "/dev/desk3", "/dev/desk4"});
    ASSERT_TRUE(rig.tool.Start(""));
    EXPECT_EQ(rig.Boxes().front(), "Go Interactive? ");
    EXPECT_EQ(rig.line.CommPort(), answer == BoxAnswer::kYes ? 3 : 4) << "the port that was named";
    EXPECT_EQ(rig.tool.variables.ComPortNumber, 3);
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
  EXPECT_TRUE(std::filesystem::exists(folder.File("Stage 4.qcf")));
  EXPECT_FALSE(rig.line.PortOpen() || form.Visible());
  EXPECT_TRUE(rig.pump.Ending());
  const std::pair<const char*, std::string> expected[] = {
      {"Height", "6000"},
      {"Width", "9000"},
      {"Top", "200"},
      {"Left", "100"},
      {"Page", "3"},
      {"Timer", "3"},
      {"ComD", "1"},
      {"HardwareType", "HD7340Q"},
      {"DBVersion", rig.tool.database.DatabaseVersion()},
      {"AppVersion", MARLINSET_VERSION},
      {"Default", folder.File("Stage 4.qcf")},
  };
  for (const auto& [key, value] : expected) EXPECT_EQ(rig.settings.GetSetting(key, ""), value) << key;

  ToolRig quiet;
  quiet.settings.SaveSetting("Default", kShipped);
  ASSERT_TRUE(quiet.tool.Start(""));
  quiet.tool.form.oView(5).OperatorClick();
  quiet.tool.form.mnuExit.OperatorClick();
  EXPECT_THAT(quiet.Boxes(), IsEmpty()) << "nothing to ask";
  EXPECT_EQ(quiet.settings.GetSetting("Page", "none"), "none") << "only views 1 to 4 are remembered";
}

TEST(CloseRequest, EndsAWaitWithoutAWord) {
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start("HDDC"));
  rig.line.Unit().Faults().mute = true;
  rig.tool.form.bOpen.Press();
  rig.pump.At(rig.pump.Now() + 5, [&] { rig.tool.form.mnuExit.OperatorClick(); });
  rig.tool.form.mnuAuto.OperatorClick();
  EXPECT_TRUE(rig.pump.Ending());
  EXPECT_THAT(rig.Boxes(), IsEmpty());
}

/// The operator leaves in the middle of a send: it ends without a word, and the window closes.
TEST(CloseRequest, EndsARunningSend) {
  ToolRig rig{UnitSettings{.standard = 4}};
  ASSERT_TRUE(rig.tool.Start("HDDC"));
  rig.tool.commands.MessageSent.Connect([&](const SentMessage& message) {
    if (std::string(message.command) == "cmdVitcLines") {
      rig.pump.At(rig.pump.Now(), [&] { rig.tool.form.mnuExit.OperatorClick(); });
    }
  });
  rig.dialogs.answers = {BoxAnswer::kYes};  // should the standards differ
  rig.tool.form.bSConfig.Press();
  EXPECT_EQ(rig.tool.wholeSend.Result().end, SendEnd::kStopped);
  EXPECT_TRUE(rig.pump.Ending());
  EXPECT_FALSE(rig.line.PortOpen());
}

}  // namespace
}  // namespace marlinset
