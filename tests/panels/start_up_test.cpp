// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/start_up.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/frm_splash.h"
#include "panels/splash.h"
#include "tests/support/sqlite_file.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

TEST(FormLoad, FirstStartWithoutSettings) {
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start(""));
  const FrmStart& form = rig.tool.form;
  EXPECT_EQ(rig.tool.variables.OperatingMode, "HD Video Downconvert");
  EXPECT_EQ(form.Caption(), "7340 Marlinset - System Default Video");
  EXPECT_EQ(rig.Panel(4), "File System Default Video Loaded ");
  EXPECT_TRUE(rig.tool.variables.ConfigSaved);
  EXPECT_TRUE(rig.tool.variables.MainFormActive);
  EXPECT_EQ(form.StatBar(3).Picture(), "Image2(1)");
  EXPECT_FALSE(form.mnuContents.Enabled());
  EXPECT_FALSE(form.oView(4).Visible());
  EXPECT_TRUE(form.fCodes.Visible());
  EXPECT_FALSE(form.fOutputs.Visible());
  EXPECT_FALSE(form.tInput.Visible());
  EXPECT_FALSE(form.bGetID.Enabled());
  EXPECT_TRUE(form.mnu10.Checked());
  EXPECT_TRUE(form.mnuHD7340.Checked());
  EXPECT_FALSE(form.fFilters.Visible());
  EXPECT_EQ(rig.tool.variables.PortList, "1234");
  EXPECT_TRUE(form.mnuCom1.Checked());
  EXPECT_TRUE(form.mnuOff.Checked() && !form.mnuInter.Checked());
  EXPECT_TRUE(form.mnuCharOn.Checked() && !form.mnuCharOff.Checked());
  for (const Frame* frame : {&form.fParameters, &form.fCodes, &form.fOutputs, &form.fWindows}) {
    EXPECT_EQ(frame->BackColor(), 12583104U) << "red 192, green 0, blue 192: " << frame->Name();
  }
}

TEST(FormLoad, SettingsAreRestored) {
  ToolRig rig;
  rig.settings.SaveSetting("comd", "1");
  rig.settings.SaveSetting("Page", "3");
  rig.settings.SaveSetting("Timer", "4");
  rig.settings.SaveSetting("HardwareType", "HD7340Q");
  rig.settings.SaveSetting("Comm", "3");
  ASSERT_TRUE(rig.tool.Start(""));
  const FrmStart& form = rig.tool.form;
  EXPECT_TRUE(form.mnuCommD.Checked() && form.tInput.Visible() && form.bSend.Enabled());
  EXPECT_EQ(form.views.Selected(), 3);
  EXPECT_TRUE(form.fParameters.Visible() && !form.fCodes.Visible());
  EXPECT_TRUE(form.mnu60.Checked() && !form.mnu10.Checked());
  EXPECT_EQ(form.tClearStat.Interval(), 60000);
  EXPECT_EQ(rig.tool.variables.HardwareType, "HD7340Q");
  EXPECT_TRUE(form.fSDIProgramOut.Visible());
  EXPECT_EQ(rig.tool.variables.ComPortNumber, 3);
}

TEST(FormLoad, SettingsBeyondTheirRangeAndNoNumbersFallBack) {
  ToolRig rig;
  rig.settings.SaveSetting("Page", "6");
  rig.settings.SaveSetting("Timer", "0");
  rig.settings.SaveSetting("HardwareType", "SD7340");
  rig.settings.SaveSetting("Comm", "COM2");
  rig.settings.SaveSetting("ComD", "yes");
  for (const char* key : {"Height", "Width", "Top", "Left"}) rig.settings.SaveSetting(key, "-2147483648");
  ASSERT_TRUE(rig.tool.Start(""));
  EXPECT_EQ(rig.tool.form.Place(), WindowPlace{});
  EXPECT_EQ(rig.tool.form.views.Selected(), 0);
  EXPECT_TRUE(rig.tool.form.mnu10.Checked());
  EXPECT_EQ(rig.tool.variables.HardwareType, "HD7340");
  EXPECT_EQ(rig.tool.variables.ComPortNumber, 1);
  EXPECT_FALSE(rig.tool.form.tInput.Visible());
}

TEST(FormLoad, EachTimeOutAndTheLastPageAreRestored) {
  for (const auto& [choice, seconds] : {std::pair{"1", 10}, {"2", 20}, {"3", 30}, {"4", 60}, {"5", 0}}) {
    ToolRig rig;
    rig.settings.SaveSetting("Timer", choice);
    rig.settings.SaveSetting("Page", "5");
    ASSERT_TRUE(rig.tool.Start(""));
    const FrmStart& form = rig.tool.form;
    EXPECT_EQ(form.tClearStat.Enabled(), seconds > 0);
    EXPECT_EQ(form.tClearStat.Interval(), seconds > 0 ? seconds * 1000 : 10000);
    std::string ticked;
    for (const MenuItem* item : {&form.mnu10, &form.mnu20, &form.mnu30, &form.mnu60, &form.mnuNever}) {
      if (item->Checked()) ticked += item->Name();
    }
    EXPECT_EQ(ticked, seconds > 0 ? "mnu" + std::to_string(seconds) : "mnuNever");
    EXPECT_TRUE(form.views.Selected() == 5 && form.fDownConverter.Visible());
  }
}

TEST(FormLoad, AFolderKeepsItsKindOfSeparator) {
  for (const auto& [folder, path] : {std::pair{"C:\\tool", "C:\\tool\\"},
                                     {"C:\\tool\\", "C:\\tool\\"},
                                     {"/no/tool", "/no/tool/"},
                                     {"/no/tool/", "/no/tool/"}}) {
    ToolRig rig({}, folder);
    rig.tool.Start("");
    EXPECT_EQ(rig.tool.variables.AppPath, path);
    EXPECT_EQ(rig.tool.variables.DatabasePath, std::string(path) + "shotsys.mdb");
  }
}

TEST(FormLoad, ATableTooSmallForThePanelsIsToldByItsFailure) {
  for (const auto& [sql, box] :
       {std::pair{R"(delete from "Character Styles")", "9  Subscript out of range"},
        {R"(delete from "Down Converter Filters" where "Order" not in (select "Order" from )"
         R"("Down Converter Filters" where Ignore1 = 0 order by "Order" limit 9))",
         "380  Invalid property value"}}) {
    const TempFolder folder;
    std::filesystem::copy_file(SHIPPED_DATABASE_FOLDER "shotsys.mdb", folder.File("shotsys.mdb"));
    RunSql(folder.File("shotsys.mdb"), sql);
    ToolRig rig({}, folder.Path());
    EXPECT_FALSE(rig.tool.Start(""));
    EXPECT_THAT(rig.Boxes(), ElementsAre(box));
  }
}

TEST(FormLoad, TheCommandTextNamesAModeByNameOrId) {
  for (const auto& [text, mode] :
       {std::pair{"KeyKode Accuracy Test", "KeyKode Accuracy Test"},
        std::pair{"KEYK", "KeyKode Accuracy Test"}, std::pair{"keyk", "HD Video Downconvert"},
        std::pair{"no such mode", "HD Video Downconvert"}}) {
    ToolRig rig;
    ASSERT_TRUE(rig.tool.Start(text)) << text;
    EXPECT_EQ(rig.tool.variables.OperatingMode, mode) << text;
    EXPECT_THAT(rig.Boxes(), ElementsAre());
  }
}

TEST(FormLoad, ADatabaseOfNoUseIsToldAndTheStartEnds) {
  const TempFolder empty;
  ToolRig missing({}, empty.Path());
  EXPECT_FALSE(missing.tool.Start(""));
  EXPECT_THAT(missing.Boxes(), ElementsAre(StartsWith("3024  ")));

  // With its modes but without its positions the database is not the tool's: the program ends.
  const TempFolder folder;
  RunSql(folder.File("shotsys.mdb"),
         "create table \"Operating Mode\"(ModeId text, Name text, \"Order\", Description text, Ignore1);"
         "insert into \"Operating Mode\" values('A', 'HD Video Downconvert', 1, '', 0)");
  ToolRig other({}, folder.Path());
  EXPECT_THROW(other.tool.Start(""), ProgramEnd);
  EXPECT_THAT(other.Boxes(), ElementsAre("DataBase Error. Expected file at Path " +
                                         folder.File("shotsys.mdb") + " Error code = 3078 App Terminated"));

  // A table that is missing later ends the start; what was loaded before stays.
  RunSql(folder.File("shotsys.mdb"), "create table \"Character Max Positions\"(Description text)");
  ToolRig partial({}, folder.Path());
  EXPECT_FALSE(partial.tool.Start(""));
  EXPECT_THAT(partial.Boxes(), ElementsAre(StartsWith("3078  ")));
  EXPECT_EQ(partial.tool.variables.OperatingModes.size(), 1U);
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
    EXPECT_THAT(shownAt, ElementsAre());
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
  for (const int panel : {1, 2, 3}) form.StatBar(panel).SetText("Ack In");
  form.StatBar(4).SetText("HD7340");
  rig.pump.Pass(9999);
  EXPECT_EQ(rig.Panel(4), "HD7340");
  rig.pump.Pass(1);
  EXPECT_EQ(rig.Panel(1) + rig.Panel(2) + rig.Panel(3) + rig.Panel(4), "");
  EXPECT_EQ(form.StatBar(3).Picture(), "Image2(2)");

  form.StatBar(4).SetText("HD7340");
  form.mnuInter.SetChecked(true);
  rig.pump.Pass(20000);
  EXPECT_EQ(rig.Panel(4), "HD7340");
  form.mnuInter.SetChecked(false);
  form.mnuNever.OperatorClick();
  rig.pump.Pass(100000);
  EXPECT_EQ(rig.Panel(4), "HD7340");
  EXPECT_TRUE(form.mnuNever.Checked() && !form.mnu10.Checked());
}

TEST(CommDialog, ShowsAndEnablesItsToolsAndHidesThemAgain) {
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start(""));
  FrmStart& form = rig.tool.form;
  for (const bool shown : {true, false}) {
    form.mnuCommD.OperatorClick();
    EXPECT_EQ(form.mnuCommD.Checked(), shown);
    EXPECT_EQ(form.tInput.Visible(), shown);
    for (const Button* tool : {&form.bGetID, &form.bSend, &form.bBroad}) {
      EXPECT_EQ(tool->Visible(), shown) << tool->Name();
      EXPECT_EQ(tool->Enabled(), shown) << tool->Name();
    }
  }
}

}  // namespace
}  // namespace marlinset
