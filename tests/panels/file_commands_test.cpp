// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/panels/panel_rig.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using ::testing::IsEmpty;

struct FileCommandsTest : ::testing::Test {
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

/// The window's mark depends on what is stored, whatever the commands count as saved.
TEST_F(FileCommandsTest, TheMarkTellsWhatIsInNoFile) {
  bool shown = false;
  rig.tool.unsavedChanges.Changed.Connect([&] { shown = rig.tool.unsavedChanges.Modified(); });
  for (const TableRow& row : TableOf("unsaved")) {
    SCOPED_TRACE(row[0]);
    rig.fileDialog.choices = {folder.File("a.qcf")};
    for (const std::string& action : Split(row[1], ';')) {
      if (action == "cancel") {
        rig.fileDialog.choices = {std::nullopt};
      } else if (action == "full") {
        rig.files.room = 10;
      } else if (action == "room") {
        rig.files.room.reset();
      } else if (action == "foreign") {
        folder.Write("a.qcf", "x");
      } else {
        rig.Do(action);
      }
    }
    rig.pump.Pass(100);
    EXPECT_EQ(rig.tool.unsavedChanges.Modified(), row[2] == "modified");
    EXPECT_EQ(shown, row[2] == "modified");
  }
  EXPECT_FALSE(vars.ConfigSaved) << "the exit asks about what was not written";
}

}  // namespace
}  // namespace marlinset
