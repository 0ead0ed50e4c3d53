// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"
#include "tests/support/test_files.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class AboutTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(rig_.tool.Start("")); }
  void GoInteractive() {
    form_.bGetID.Press();
    form_.mnuInter.SetChecked(true);
    form_.mnuOff.SetChecked(false);
    rig_.line.ClearSent();
  }
  bool Active() const { return rig_.tool.variables.MainFormActive; }

  ToolRig rig_;
  FrmStart& form_ = rig_.tool.form;
  FrmAbout& about_ = rig_.tool.about.form;
};

TEST_F(AboutTest, TellsWhatIsRunningAndPausesPolling) {
  form_.mnuAbout.OperatorClick();
  EXPECT_EQ(about_.Caption(), "About 7340 Marlinset");
  EXPECT_EQ(about_.lblTitle.Caption(), "7340 Marlinset");
  EXPECT_THAT(about_.lblVersion.Caption(), testing::MatchesRegex("Release [0-9]+\\.[0-9]+\\.[0-9]+"));
  EXPECT_EQ(about_.lblDatabase.Caption(), "Database Version: " + rig_.tool.database.DatabaseVersion());
  EXPECT_EQ(about_.lblFirmWare.Caption(), "FirmWare Version: ####");
  EXPECT_FALSE(about_.lblDescription.Caption().empty() || about_.lblDisclaimer.Caption().empty());
  EXPECT_THAT(rig_.line.Sent(), IsEmpty());
  EXPECT_FALSE(Active());
  rig_.tool.SetActive(true);  // back from another program, to the box
  EXPECT_FALSE(Active());
  form_.mnuAbout.OperatorClick();
  EXPECT_THAT(rig_.dialogs.forms, ElementsAre(&about_)) << "one box at a time";
  about_.cmdOK.OperatorClick();
  EXPECT_FALSE(about_.Visible());
  EXPECT_TRUE(Active());
  form_.mnuAbout.OperatorClick();
  about_.SetVisible(false);  // the cross
  EXPECT_TRUE(Active());
}

TEST_F(AboutTest, AsksTheUnitInInteractiveMode) {
  GoInteractive();
  form_.mnuAbout.OperatorClick();
  EXPECT_EQ(about_.lblFirmWare.Caption(), "FirmWare Version: MARLIN40 020E00");
  EXPECT_THAT(rig_.line.Sent(), SizeIs(1));
}

TEST_F(AboutTest, DoesNotOpenWhileTheUnitIsSilent) {
  GoInteractive();
  rig_.line.Unit().Faults().mute = true;
  const std::int64_t start = rig_.pump.Now();
  rig_.pump.At(start + 5500, [&] {
    EXPECT_FALSE(about_.Visible() || Active());
    form_.mnuAbout.OperatorClick();
    rig_.tool.ports.ClosePort();
  });
  form_.mnuAbout.OperatorClick();
  EXPECT_EQ(rig_.pump.Now(), start + 5500);
  EXPECT_TRUE(about_.Visible());
  EXPECT_EQ(about_.lblFirmWare.Caption(), "FirmWare Version: ");
  EXPECT_THAT(rig_.dialogs.forms, SizeIs(1));
}

TEST_F(AboutTest, GivesUpWhenItIsClosedOrTheProgramEnds) {
  for (const bool end : {false, true}) {
    GoInteractive();
    rig_.line.Unit().Faults().mute = true;
    const std::int64_t given = rig_.pump.Now() + 1500;
    rig_.pump.At(given, [&] { end ? rig_.pump.End() : about_.cmdOK.Press(); });
    rig_.pump.At(given + 9000, [&] { rig_.pump.End(); });
    form_.mnuAbout.OperatorClick();
    EXPECT_EQ(rig_.pump.Now(), given);
    EXPECT_THAT(rig_.dialogs.forms, IsEmpty());
    EXPECT_TRUE(Active());
    rig_.line.Unit().Faults().mute = false;
  }
}

TEST_F(AboutTest, LeavesTheMainWindowActiveWhenItsDatabaseIsGone) {
  rig_.tool.variables.DatabasePath = "/nowhere/shotsys.mdb";
  form_.mnuAbout.OperatorClick();
  EXPECT_THAT(rig_.Boxes(), ElementsAre(testing::StartsWith("3024  ")));
  EXPECT_THAT(rig_.dialogs.forms, IsEmpty());
  EXPECT_TRUE(Active());
}

TEST_F(AboutTest, LooksTheSystemsInformationToolUp) {
  const std::string key = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
  const std::string location = "SOFTWARE\\Microsoft\\Shared Tools Location";
  TempFolder folder;
  const std::string beside = folder.File("info") + "\\MSINFO32.EXE";
  struct Case {
    const char* what;
    RegistryValue path, place;
    bool startsNothing;
    std::vector<std::string> started;
    bool box;
  };
  const Case cases[] = {
      {"no registry", {}, {}, false, {}, true},
      {"path", "C:\\x.exe", folder.File("info"), false, {"C:\\x.exe"}, false},
      {"path that does not start", "C:\\x.exe", {}, true, {"C:\\x.exe"}, true},
      {"double word", std::uint32_t{0x1A}, {}, false, {"&h1A"}, false},
      {"place", {}, folder.File("info"), false, {beside}, false},
      {"place without the program", {}, "/nowhere", false, {}, true},
  };
  folder.Write("info\\MSINFO32.EXE", "");
  for (const Case& c : cases) {
    rig_.desktop.registry = {{{key, "PATH"}, c.path}, {{location, "MSINFO"}, c.place}};
    rig_.desktop.startsNothing = c.startsNothing;
    rig_.desktop.started.clear();
    rig_.dialogs.shown.clear();
    form_.mnuAbout.OperatorClick();
    about_.cmdSysInfo.OperatorClick();
    EXPECT_EQ(rig_.desktop.started, c.started) << c.what;
    const std::vector<std::string> boxes(c.box ? 1 : 0, "System Information Is Unavailable At This Time");
    EXPECT_EQ(rig_.Boxes(), boxes) << c.what;
    about_.cmdOK.OperatorClick();
  }
}

}  // namespace
}  // namespace marlinset
