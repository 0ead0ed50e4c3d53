// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temp_folder.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kQuestion = "Save changes before opening a new configuration?";

class FileCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(rig.tool.Start(""));
    rig.settings.SaveSetting("Load", folder.Path() + "/");
  }
  void Choose(std::string_view name) { rig.fileDialog.choices.emplace_back(folder.File(name)); }

  /// On line as after an entry into interactive mode, with the unit known.
  void GoInteractive() {
    form.bGetID.Press();
    form.mnuInter.SetChecked(true);
    form.mnuOff.SetChecked(false);
    form.InterTime.SetEnabled(true);
    form.Image1(2).SetVisible(true);
    rig.line.ClearSent();
  }
  /// What the operator sees while the file dialog stands.
  struct Suspension {
    bool polling, interactive, off, heartbeat;
    std::string text, picture;
  };
  Suspension Look() const {
    return {form.InterTime.Enabled(), form.mnuInter.Checked(), form.mnuOff.Checked(),
            form.Image1(2).Visible(), form.StatBar(3).Text(),  form.StatBar(3).Picture()};
  }

  ToolRig rig;
  TempFolder folder;
  FrmStart& form = rig.tool.form;
  Variables& vars = rig.tool.variables;
};

TEST_F(FileCommandsTest, NewBringsTheDefaultsAndAName) {
  form.tWinMess.SetText("left over");
  form.UDDur.SetValue(7);
  vars.ConfigSaved = true;  // no question
  form.mnuNew.OperatorClick();
  EXPECT_EQ(form.tWinMess.Text(), "");
  EXPECT_EQ(form.Caption(), "7340 Marlinset - New");
  EXPECT_EQ(vars.CurrentFile, "New");
  EXPECT_EQ(rig.fileDialog.FileName, folder.File("New.qcf"));
  EXPECT_TRUE(folder.Read("New.qcf").empty()) << "a name, no file";
  EXPECT_TRUE(vars.ConfigSaved);
  form.mnuSav.OperatorClick();
  EXPECT_FALSE(folder.Read("New.qcf").empty());
  EXPECT_THAT(rig.Boxes(), IsEmpty());
}

TEST_F(FileCommandsTest, TheQuestionComesOnlyForEditsAndBeforeTheDialog) {
  vars.ConfigSaved = false;
  form.tWinMess.SetText("precious");
  rig.dialogs.answers = {BoxAnswer::kYes};
  Choose("precious.qcf");
  form.mnuNew.OperatorClick();
  EXPECT_THAT(rig.Boxes(), ElementsAre(kQuestion));
  EXPECT_EQ(rig.dialogs.shown.back().caption, "7340 Marlinset");
  EXPECT_EQ(form.tWinMess.Text(), "");

  vars.ConfigSaved = false;
  Choose("precious.qcf");
  form.mnuOpen.OperatorClick();
  EXPECT_THAT(rig.Boxes(), ElementsAre(kQuestion, kQuestion)) << "No: the edits are lost";
  EXPECT_EQ(form.tWinMess.Text(), "precious");
  EXPECT_TRUE(vars.ConfigSaved);
  form.mnuOpen.OperatorClick();
  EXPECT_EQ(rig.Boxes().size(), 2U);
  EXPECT_EQ(rig.fileDialog.shown.size(), 3U);
}

TEST_F(FileCommandsTest, AFileThatTheDesktopNamesOpensAsIfItHadBeenChosen) {
  vars.ConfigSaved = false;
  form.tWinMess.SetText("precious");
  rig.dialogs.answers = {BoxAnswer::kYes};
  Choose("precious.qcf");
  rig.tool.fileCommands.OpenNamed(rig.tool.variables.AppPath + "System Default Video.qcf");
  EXPECT_THAT(rig.Boxes(), ElementsAre(kQuestion));
  EXPECT_EQ(form.tWinMess.Text(), "") << "another one is open now";
  EXPECT_EQ(form.Caption(), "7340 Marlinset - System Default Video");
  rig.tool.fileCommands.OpenNamed(folder.File("precious.qcf"));
  EXPECT_EQ(form.tWinMess.Text(), "precious");
  EXPECT_EQ(rig.settings.GetSetting("Load", ""), folder.Path() + "/") << "where the next dialog opens";
  EXPECT_TRUE(vars.ConfigSaved);
  EXPECT_EQ(rig.fileDialog.shown.size(), 1U) << "only to save";
}

TEST_F(FileCommandsTest, EveryCommandEndsSavedEvenWhenCancelled) {
  for (MenuItem* command : {&form.mnuOpen, &form.mnuSave}) {
    vars.ConfigSaved = false;
    command->OperatorClick();
    EXPECT_TRUE(vars.ConfigSaved);
  }
}

TEST_F(FileCommandsTest, SaveOfASystemDefaultAsksForAName) {
  vars.CurrentFile = "system default Video";
  Choose("mine.qcf");
  form.mnuSav.OperatorClick();
  EXPECT_EQ(rig.fileDialog.shown.size(), 1U);
  EXPECT_FALSE(folder.Read("mine.qcf").empty());
}

TEST_F(FileCommandsTest, InteractiveModeRestsAndTheUnitFollows) {
  Choose("show.qcf");
  form.mnuSave.OperatorClick();
  GoInteractive();
  std::optional<Suspension> during;
  rig.dialogs.onShow = [&](const MessageBox&) {
    during = Look();
    return BoxAnswer::kOk;
  };
  Choose("System Default.qcf");
  Choose("show.qcf");
  form.mnuSave.OperatorClick();
  ASSERT_TRUE(during);
  EXPECT_FALSE(during->polling || during->interactive || during->heartbeat);
  EXPECT_TRUE(during->off);
  EXPECT_EQ(during->text, "Interactive mode disabled ");
  EXPECT_EQ(during->picture, "Image2(2)");
  EXPECT_TRUE(rig.line.Sent().empty()) << "a save sends nothing";
  EXPECT_EQ(Look().text, "Interactive mode enabled ");
  EXPECT_TRUE(Look().polling && Look().interactive && !Look().off);

  for (MenuItem* command : {&form.mnuOpen, &form.mnuNew}) {
    rig.line.ClearSent();
    Choose("show.qcf");
    command->OperatorClick();
    EXPECT_GT(rig.line.Sent().size(), 50U) << "the whole configuration";
    EXPECT_TRUE(Look().polling && Look().interactive && !Look().off);
    EXPECT_EQ(form.StatBar(3).Text(), "Interactive mode enabled ");
  }
}

TEST_F(FileCommandsTest, FilesInUseStandInTheMenuLatestFirst) {
  const auto menu = [this] {
    std::vector<std::string> names;
    for (const int i : rig.tool.recentFiles.mnuRecent.Indices()) {
      const MenuItem& item = rig.tool.recentFiles.mnuRecent(i);
      if (item.Visible()) names.push_back(FileNameOf(item.Caption()));
    }
    return names;
  };
  EXPECT_THAT(menu(), IsEmpty());
  for (const char* name : {"a.qcf", "b.qcf", "c.qcf"}) {
    Choose(name);
    form.mnuSave.OperatorClick();
  }
  Choose("a.qcf");
  form.mnuOpen.OperatorClick();
  folder.Write("noise.qcf", "no configuration");
  Choose("noise.qcf");
  form.mnuOpen.OperatorClick();
  EXPECT_THAT(menu(), ElementsAre("a.qcf", "c.qcf", "b.qcf")) << "one that was not read is not in use";

  rig.dialogs.shown.clear();
  vars.ConfigSaved = false;
  rig.dialogs.answers.push_back(BoxAnswer::kNo);
  form.Find("mnuRecent", 2)->OperatorClick();
  EXPECT_THAT(rig.Boxes(), ElementsAre(kQuestion));
  EXPECT_EQ(form.Caption(), "7340 Marlinset - c");
  EXPECT_THAT(menu(), ElementsAre("c.qcf", "a.qcf", "b.qcf"));

  rig.dialogs.shown.clear();
  std::filesystem::remove(folder.File("a.qcf"));
  form.Find("mnuRecent", 2)->OperatorClick();
  EXPECT_THAT(rig.Boxes(), ElementsAre("The file " + folder.File("a.qcf") +
                                       " is no longer there. It has been taken off the list."));
  EXPECT_EQ(form.Caption(), "7340 Marlinset - c");
  EXPECT_THAT(menu(), ElementsAre("c.qcf", "b.qcf"));
  for (int i = 0; i < 9; ++i) {
    Choose(std::to_string(i) + ".qcf");
    form.mnuSave.OperatorClick();
  }
  EXPECT_EQ(menu().size(), 8U);
  EXPECT_EQ(rig.settings.GetSetting("recent8", ""), folder.File("1.qcf")) << "kept for the next run";
}

}  // namespace
}  // namespace marlinset
