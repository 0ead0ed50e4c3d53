// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/panels/panel_rig.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using ::testing::IsEmpty;

struct FileCommandsTest : ::testing::Test, PanelRig {
  FileCommandsTest() { settings.SaveSetting("Load", folder.Path() + "/"); }
  void Choose(std::string_view name) { fileDialog.choices.emplace_back(folder.File(name)); }
  void SaveAs(std::string_view name) {
    Choose(name);
    form.mnuSave.OperatorClick();
  }
  TempFolder folder;
};

TEST_F(FileCommandsTest, InteractiveModeRestsAndTheUnitFollows) {
  SaveAs("show.qcf");
  GoInteractive();
  form.Image1(2).SetVisible(true);
  const auto mode = [this] {
    return form.StatBar(3).Text() + (form.InterTime.Enabled() ? "polling " : "") +
           (form.mnuInter.Checked() ? "inter " : "") + (form.mnuOff.Checked() ? "off " : "") +
           (form.Image1(2).Visible() ? "heartbeat" : "");
  };
  std::string during;
  dialogs.onShow = [&](const MessageBox&) {
    during = mode();
    return BoxAnswer::kOk;
  };
  Choose("System Default.qcf");  // refused by a box
  SaveAs("show.qcf");
  EXPECT_EQ(during, "Interactive mode disabled off ");
  EXPECT_THAT(Sent(), IsEmpty()) << "a save sends nothing";
  for (MenuItem* command : {&form.mnuOpen, &form.mnuNew}) {
    Choose("show.qcf");
    command->OperatorClick();
    EXPECT_GT(Sent().size(), 50U) << "the whole configuration";
    EXPECT_EQ(mode(), "Interactive mode enabled polling inter ");
  }

  dialogs.onShow = [this](const MessageBox& box) {
    if (line.PortOpen()) line.Vanish();
    return FakeDialogs::Default(box.buttons);
  };
  fileDialog.choices = {folder.File("System Default.qcf")};
  form.mnuSave.OperatorClick();
  EXPECT_EQ(mode(), "Interactive mode disabled off ") << "the line went while the box stood";
  EXPECT_TRUE(form.mnuHD7340.Enabled());
}

/// The window's mark depends on what is stored, whatever the commands count as saved.
TEST_F(FileCommandsTest, TheMarkTellsWhatIsInNoFile) {
  bool shown = false;
  tool.unsavedChanges.Changed.Connect([&] { shown = tool.unsavedChanges.Modified(); });
  for (const TableRow& row : TableOf("unsaved")) {
    SCOPED_TRACE(row[0]);
    fileDialog.choices = {folder.File("a.qcf")};
    for (const std::string& action : Split(row[1], ';')) {
      if (action == "cancel") {
        fileDialog.choices = {std::nullopt};
      } else if (action == "full") {
        files.room = 10;
      } else if (action == "room") {
        files.room.reset();
      } else if (action == "foreign") {
        folder.Write("a.qcf", "x");
      } else {
        Do(action);
      }
    }
    pump.Pass(100);
    EXPECT_EQ(tool.unsavedChanges.Modified(), row[2] == "modified");
    EXPECT_EQ(shown, row[2] == "modified");
  }
  EXPECT_FALSE(vars.ConfigSaved) << "the exit asks about what was not written";
}

}  // namespace
}  // namespace marlinset
