// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>

#include "tests/panels/panel_rig.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kQuestion = "Save changes before opening a new configuration?";

class FileCommandsTest : public ::testing::Test {
 protected:
  FileCommandsTest() { rig.settings.SaveSetting("Load", folder.Path() + "/"); }
  void Choose(std::string_view name) { rig.fileDialog.choices.emplace_back(folder.File(name)); }
  void SaveAs(std::string_view name) {
    Choose(name);
    form.mnuSave.OperatorClick();
  }
  PanelRig rig;
  TempFolder folder;
  FrmStart& form = rig.form;
  Variables& vars = rig.vars;
};

TEST_F(FileCommandsTest, NewBringsTheDefaultsAndAName) {
  form.tWinMess.SetText("left over");
  vars.ConfigSaved = true;
  form.mnuNew.OperatorClick();
  EXPECT_EQ(form.tWinMess.Text(), "");
  EXPECT_EQ(form.Caption(), "7340 Marlinset - New");
  EXPECT_TRUE(folder.Read("New.qcf").empty()) << "a name, no file";
  EXPECT_TRUE(vars.ConfigSaved);
  form.mnuSav.OperatorClick();
  EXPECT_FALSE(folder.Read("New.qcf").empty());
  EXPECT_THAT(rig.Told(), IsEmpty());
  vars.CurrentFile = "system default Video";
  form.mnuSav.OperatorClick();
  EXPECT_EQ(rig.fileDialog.shown.size(), 1U) << "the shipped configuration stays as it is";
}

TEST_F(FileCommandsTest, TheQuestionComesOnlyForEditsAndBeforeTheDialog) {
  const std::function<void()> commands[] = {
      [&] { form.mnuNew.OperatorClick(); }, [&] { form.mnuOpen.OperatorClick(); },
      [&] { rig.tool.fileCommands.OpenNamed(vars.AppPath + "System Default Video.qcf"); }};
  for (const auto& command : commands) {
    for (const bool save : {true, false}) {
      form.tWinMess.SetText(save ? "precious" : "lost");
      vars.ConfigSaved = false;
      rig.dialogs.answers = {save ? BoxAnswer::kYes : BoxAnswer::kNo};
      rig.fileDialog.choices.clear();
      if (save) Choose("kept.qcf");
      Choose("kept.qcf");
      command();
      EXPECT_THAT(rig.Told(), ElementsAre(kQuestion));
      EXPECT_TRUE(vars.ConfigSaved);
    }
    rig.tool.fileCommands.OpenNamed(folder.File("kept.qcf"));
    EXPECT_EQ(form.tWinMess.Text(), "precious");
    EXPECT_EQ(form.Caption(), "7340 Marlinset - kept");
    EXPECT_THAT(rig.Told(), IsEmpty());
    std::filesystem::remove(folder.File("kept.qcf"));
  }
}

TEST_F(FileCommandsTest, InteractiveModeRestsAndTheUnitFollows) {
  SaveAs("show.qcf");
  rig.GoInteractive();
  form.Image1(2).SetVisible(true);
  const auto mode = [this] {
    return form.StatBar(3).Text() + (form.InterTime.Enabled() ? "polling " : "") +
           (form.mnuInter.Checked() ? "inter " : "") + (form.mnuOff.Checked() ? "off " : "") +
           (form.Image1(2).Visible() ? "heartbeat" : "");
  };
  std::string during;
  rig.dialogs.onShow = [&](const MessageBox&) {
    during = mode();
    return BoxAnswer::kOk;
  };
  Choose("System Default.qcf");  // refused by a box
  SaveAs("show.qcf");
  EXPECT_EQ(during, "Interactive mode disabled off ");
  EXPECT_THAT(rig.Sent(), IsEmpty()) << "a save sends nothing";
  for (MenuItem* command : {&form.mnuOpen, &form.mnuNew}) {
    Choose("show.qcf");
    command->OperatorClick();
    EXPECT_GT(rig.Sent().size(), 50U) << "the whole configuration";
    EXPECT_EQ(mode(), "Interactive mode enabled polling inter ");
  }

  rig.dialogs.onShow = [this](const MessageBox& box) {
    if (rig.line.PortOpen()) rig.line.Vanish();
    return FakeDialogs::Default(box.buttons);
  };
  rig.fileDialog.choices = {folder.File("System Default.qcf")};
  form.mnuSave.OperatorClick();
  EXPECT_EQ(mode(), "Interactive mode disabled off ") << "the line went while the box stood";
  EXPECT_TRUE(form.mnuHD7340.Enabled());
}

/// The window's mark: by what is stored, whatever the commands take as saved.
TEST_F(FileCommandsTest, TheMarkTellsWhatIsInNoFile) {
  const auto type = [this](const char* text) { return [=, this] { form.tWinMess.OperatorType(text); }; };
  const auto choose = [this](MenuItem& command, bool cancel = false) {
    return [=, this, &command] {
      rig.fileDialog.choices = {cancel ? std::nullopt : std::optional(folder.File("a.qcf"))};
      command.OperatorClick();
    };
  };
  bool shown = false;
  rig.tool.unsavedChanges.Changed.Connect([&] { shown = rig.tool.unsavedChanges.Modified(); });
  const std::tuple<const char*, std::function<void()>, bool> steps[] = {
      {"New", choose(form.mnuNew), false},
      {"an edit", type("A"), true},
      {"Save As, cancelled", choose(form.mnuSave, true), true},
      {"set back by hand", type(""), false},
      {"what no question counts", [&] { form.comVS.OperatorSelect(1); }, true},
      {"Open, cancelled", choose(form.mnuOpen, true), true},
      {"Save As", choose(form.mnuSave), false},
      {"a full disk", [&] { rig.files.room = 10; }, false},
      {"Save, failed", choose(form.mnuSav), true},
      {"room again", [&] { rig.files.room.reset(); }, true},
      {"Save", choose(form.mnuSav), false},
      {"another edit, and others write", [&] { type("B")(), folder.Write("a.qcf", "x"); }, true},
      {"Save, not over it", choose(form.mnuSav), true}};
  for (const auto& [what, act, modified] : steps) {
    act();
    rig.pump.Pass(100);
    EXPECT_EQ(rig.tool.unsavedChanges.Modified(), modified) << what;
    EXPECT_EQ(shown, modified) << what;
  }
  EXPECT_FALSE(vars.ConfigSaved) << "the exit asks about what was not written";
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
  for (const char* name : {"a.qcf", "b.qcf", "c.qcf"}) SaveAs(name);
  rig.tool.fileCommands.OpenNamed(folder.File("a.qcf"));
  rig.tool.fileCommands.OpenNamed(folder.Write("noise.qcf", "no configuration"));
  EXPECT_THAT(menu(), ElementsAre("a.qcf", "c.qcf", "b.qcf")) << "one that was not read is not in use";
  rig.Told();
  vars.ConfigSaved = false;
  form.Find("mnuRecent", 2)->OperatorClick();
  EXPECT_THAT(rig.Told(), ElementsAre(kQuestion));
  EXPECT_EQ(form.Caption(), "7340 Marlinset - c");
  EXPECT_THAT(menu(), ElementsAre("c.qcf", "a.qcf", "b.qcf"));

  std::filesystem::remove(folder.File("a.qcf"));
  form.Find("mnuRecent", 2)->OperatorClick();
  EXPECT_THAT(rig.Told(), ElementsAre("The file " + folder.File("a.qcf") +
                                      " is no longer there. It has been taken off the list."));
  EXPECT_EQ(form.Caption(), "7340 Marlinset - c");
  EXPECT_THAT(menu(), ElementsAre("c.qcf", "b.qcf"));
  for (int i = 0; i < 9; ++i) SaveAs(std::to_string(i) + ".qcf");
  EXPECT_EQ(menu().size(), 8U);
  EXPECT_EQ(rig.settings.GetSetting("recent8", ""), folder.File("1.qcf")) << "kept for the next run";
}

}  // namespace
}  // namespace marlinset
