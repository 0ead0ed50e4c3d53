// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/interactive_mode.h"

#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kGetId = "15 0 53";
constexpr const char* kVideoSense = "15 0 52";

/// A unit whose input has the standard of the panels.
struct InteractiveTest : ::testing::Test, ToolRig {
  InteractiveTest() : ToolRig({.standard = 4}) {
    EXPECT_TRUE(tool.Start(""));
    EXPECT_EQ(form.comVS.Text(), "1080i/60");
  }
  void Enter() {
    form.mnuInter.OperatorClick();
    ASSERT_TRUE(form.mnuInter.Checked());
    line.ClearSent();
    dialogs.shown.clear();
  }
  /// Lets one tick of the poll pass; returns what goes out.
  std::vector<std::string> Tick() {
    line.ClearSent();
    dialogs.shown.clear();
    pump.Pass(5000);
    return line.SentFields();
  }
  std::vector<int> Heartbeat() const {
    std::vector<int> shown;
    for (const int i : form.Image1.Indices()) {
      if (form.Image1(i).Visible()) shown.push_back(i);
    }
    return shown;
  }
  void ExpectMode(bool on) const {
    EXPECT_TRUE(form.InterTime.Enabled() == on && form.mnuInter.Checked() == on);
    EXPECT_TRUE(form.mnuOff.Checked() != on && form.mnuHD7340.Enabled() != on);
    EXPECT_EQ(form.mnuHD7340Q.Enabled(), !on);
  }
};

TEST_F(InteractiveTest, EntersWithIdentificationAndWholeSendAndLeavesAsItCame) {
  form.mnuInter.OperatorClick();
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(tool.wholeSend.Result().end, SendEnd::kComplete);
  EXPECT_EQ(line.SentFields().front(), kGetId);
  ExpectMode(true);
  EXPECT_THAT(Heartbeat(), ElementsAre(0));
  EXPECT_EQ(settings.GetSetting("InMode", ""), "On");
  form.mnuHD7340Q.OperatorClick();
  EXPECT_EQ(tool.variables.HardwareType, "HD7340") << "the operator's model stays meanwhile";
  line.ClearSent();
  form.mnuInter.OperatorClick();
  EXPECT_THAT(line.Sent(), IsEmpty()) << "it is on already";

  form.chPrev.OperatorCheck(true);
  line.ClearSent();
  form.mnuOff.OperatorClick();
  EXPECT_EQ(form.chPrev.Value(), 0);
  EXPECT_THAT(line.Sent(), IsEmpty()) << "off line nothing is sent, not even the preview's end";
  ExpectMode(false);
  EXPECT_EQ(Panel(2), "Offline");
  EXPECT_THAT(Heartbeat(), IsEmpty());
  EXPECT_EQ(settings.GetSetting("InMode", ""), "Off");
  EXPECT_THAT(Tick(), IsEmpty());
}

TEST_F(InteractiveTest, AFailedEntryStaysOffLineWithTheModelMenuUsable) {
  line.Unit().Faults().mute = true;
  form.Image1(2).SetVisible(true);
  form.mnuInter.OperatorClick();
  ExpectMode(false);
  EXPECT_THAT(Heartbeat(), IsEmpty());
  EXPECT_EQ(Panel(4), "Get Id Failed. ");
  line.SetPortOpen(false);
  line.RefuseOpen("There is no device behind port 1.");
  form.mnuInter.OperatorClick();
  EXPECT_THAT(Boxes().back(), "There is no device behind port 1.");
  ExpectMode(false);
}

TEST_F(InteractiveTest, PollsWithAHeartbeatOnlyWhileTheWindowIsActive) {
  Enter();
  for (const int frame : {1, 2, 3, 4, 0, 1}) {
    EXPECT_THAT(Tick(), ElementsAre(kGetId, kVideoSense));
    EXPECT_THAT(Heartbeat(), ElementsAre(frame));
  }
  tool.SetActive(false);
  EXPECT_THAT(Tick(), IsEmpty());
  tool.SetActive(true);
  form.StatBar(FrmStart::kExchangePanel).SetText("Sent");
  EXPECT_THAT(Tick(), IsEmpty()) << "an exchange has not come back yet";
  EXPECT_THAT(Heartbeat(), IsEmpty());
  form.StatBar(FrmStart::kExchangePanel).SetText("Nack In");
  EXPECT_THAT(Tick(), ElementsAre(kGetId, kVideoSense)) << "a Nak is a sign of life";
  form.mnuOff.OperatorClick();
  Enter();
  Tick();
  EXPECT_THAT(Heartbeat(), ElementsAre(1)) << "from the beginning again";
  form.dPause.SetInterval(8000);
  form.dPause.SetEnabled(true);
  EXPECT_THAT(Tick(), IsEmpty()) << "an acknowledgement is awaited";
  form.dPause.SetEnabled(false);
  form.mnuAddParameter.OperatorClick();
  EXPECT_THAT(Tick(), IsEmpty()) << "a dialog stands";
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(InteractiveTest, LocalModeSuspendsAndALostLinkEndsIt) {
  Enter();
  line.Unit().SetLocal(true);
  Tick();
  EXPECT_THAT(Boxes(), ElementsAre("Local Mode detected, Interactive mode suspended."));
  EXPECT_THAT(Tick(), ElementsAre(kVideoSense, kVideoSense))
      << "watched, without a word; a lone byte is no answer to a query";
  EXPECT_THAT(Boxes(), IsEmpty());
  ExpectMode(true);
  line.Unit().SetLocal(false);
  EXPECT_THAT(Tick(), ElementsAre(kVideoSense));
  EXPECT_THAT(Tick(), ElementsAre(kGetId, kVideoSense));

  form.StatBar(FrmStart::kExchangePanel).SetText("ACK LOST");
  EXPECT_THAT(Tick(), IsEmpty());
  EXPECT_THAT(Boxes(), ElementsAre("Comm Error, Interactive mode suspended, click OK to continue."));
  ExpectMode(false);
  EXPECT_EQ(settings.GetSetting("InMode", ""), "Off");
}

TEST_F(InteractiveTest, FollowsTheUnitsStandardIfTheOperatorAgrees) {
  Enter();
  line.Unit().SetStandard(5);
  Tick();
  EXPECT_EQ(form.comVS.Text(), "1080i/60") << "refused: it comes again";
  dialogs.answers = {BoxAnswer::kYes};
  EXPECT_THAT(Tick(), ElementsAre(kGetId, kVideoSense)) << "following sends nothing";
  EXPECT_EQ(form.comVS.Text(), "1080i/50");
  Tick();
  EXPECT_THAT(Boxes(), IsEmpty());
  form.comVS.Clear();
  for (const char* standard : {"1080i/60", "NTSC"}) form.comVS.AddItem(standard);
  form.comVS.SetListIndex(0);
  dialogs.answers = {BoxAnswer::kYes};
  Tick();
  EXPECT_THAT(Boxes(), ElementsAre("Video Standard from box changed. Change 7340-Marlinset Video Standard?",
                                   "1080i/50 Input Video Standard not supported. No changes made."));
  EXPECT_EQ(form.comVS.Text(), "1080i/60");
}

TEST_F(InteractiveTest, SelectionOfTheStandard) {
  struct Case {
    bool unitManual, wantManual, mute;
    const char* panel;
    std::size_t messages;
  };
  for (const Case& c : {Case{false, false, false, "In Auto Mode", 1},
                        {true, false, false, "Changed to Auto Mode", 2},
                        {true, true, false, "In Manual Mode", 1},
                        {false, true, false, "Changed to Manual Mode", 2},
                        {false, true, true, "Video Sense Sent", 1}}) {
    line.Unit().SetManual(c.unitManual);
    line.Unit().Faults().mute = c.mute;
    line.ClearSent();
    for (MenuItem* item : {&form.mnuAuto, &form.mnuMan}) item->SetChecked(true);
    (c.wantManual ? form.mnuMan : form.mnuAuto).OperatorClick();
    EXPECT_EQ(Panel(3), c.panel);
    EXPECT_EQ(form.StatBar(3).Picture(), c.mute ? "Image2(2)" : "Image2(0)");
    ASSERT_EQ(line.Sent().size(), c.messages) << c.panel;
    EXPECT_EQ(line.SentFields().front(), kVideoSense);
    EXPECT_EQ(line.Unit().Manual(), c.mute ? c.unitManual : c.wantManual);
  }
  EXPECT_THAT(Boxes(), ElementsAre("Mode Set error"));
  EXPECT_FALSE(form.mnuAuto.Checked() || form.mnuMan.Checked());
  EXPECT_EQ(form.pComBut.BackColor(), kRed);
}

}  // namespace
}  // namespace marlinset
