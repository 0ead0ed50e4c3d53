// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/interactive_mode.h"

#include <gmock/gmock.h>

#include "link/frame.h"
#include "tests/support/hex.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* kGetId = "02 03 0F 00 35 B9";
constexpr const char* kVideoSense = "02 03 0F 00 34 BA";

struct InteractiveTest : ::testing::Test {
  InteractiveTest() {
    EXPECT_TRUE(rig.tool.Start(""));
    // The unit sees the standard that the panels name.
    const auto& list = form.comVS.List();
    const auto found = std::find(list.begin(), list.end(), "1080i/60");
    form.comVS.SetListIndex(static_cast<int>(found - list.begin()));
  }
  void Enter() {
    form.mnuInter.OperatorClick();
    ASSERT_TRUE(form.mnuInter.Checked());
    rig.line.ClearSent();
    rig.dialogs.shown.clear();
  }
  /// One tick of the poll; what went out, as hex.
  std::vector<std::string> Tick() {
    rig.line.ClearSent();
    rig.dialogs.shown.clear();
    rig.pump.Pass(5000);
    std::vector<std::string> sent;
    for (const Bytes& bytes : rig.line.Sent()) sent.push_back(ToHex(bytes));
    return sent;
  }
  std::vector<int> Heartbeat() const {
    std::vector<int> shown;
    for (const int i : form.Image1.Indices()) {
      if (form.Image1(i).Visible()) shown.push_back(i);
    }
    return shown;
  }

  ToolRig rig{UnitSettings{.standard = 4}};
  FrmStart& form = rig.tool.form;
};

TEST_F(InteractiveTest, EntersWithIdentificationAndWholeSendAndLeavesAsItCame) {
  form.mnuInter.OperatorClick();
  EXPECT_THAT(rig.Boxes(), IsEmpty());
  EXPECT_EQ(rig.tool.wholeSend.Result().end, SendEnd::kComplete);
  EXPECT_EQ(ToHex(rig.line.Sent().front()), kGetId);
  EXPECT_TRUE(form.InterTime.Enabled() && form.mnuInter.Checked() && !form.mnuOff.Checked());
  EXPECT_FALSE(form.mnuHD7340.Enabled() || form.mnuHD7340Q.Enabled());
  EXPECT_THAT(Heartbeat(), ElementsAre(0));
  EXPECT_EQ(rig.settings.GetSetting("InMode", ""), "On");
  rig.line.ClearSent();
  rig.settings.SaveSetting("InMode", "Off");
  form.mnuInter.OperatorClick();
  EXPECT_THAT(rig.line.Sent(), IsEmpty()) << "it is on already";
  EXPECT_EQ(rig.settings.GetSetting("InMode", ""), "On");

  form.chPrev.OperatorCheck(true);
  rig.line.ClearSent();
  form.mnuOff.OperatorClick();
  EXPECT_EQ(form.chPrev.Value(), 0);
  EXPECT_THAT(rig.line.Sent(), IsEmpty()) << "off line nothing is sent, not even the preview's end";
  EXPECT_FALSE(form.InterTime.Enabled() || form.mnuInter.Checked());
  EXPECT_TRUE(form.mnuHD7340.Enabled() && form.mnuHD7340Q.Enabled() && form.mnuOff.Checked());
  EXPECT_EQ(rig.Panel(2), "Offline");
  EXPECT_THAT(Heartbeat(), IsEmpty());
  EXPECT_EQ(rig.settings.GetSetting("InMode", ""), "Off");
  EXPECT_THAT(Tick(), IsEmpty());
}

TEST_F(InteractiveTest, AFailedEntryStaysOffLineWithTheModelMenuUsable) {
  rig.line.Unit().Faults().mute = true;
  form.mnuInter.OperatorClick();
  EXPECT_THAT(rig.Boxes(), ElementsAre(StartsWith("Ensure that the PC is properly connected")));
  EXPECT_TRUE(form.mnuOff.Checked() && !form.mnuInter.Checked() && !form.InterTime.Enabled());
  EXPECT_TRUE(form.mnuHD7340.Enabled() && form.mnuHD7340Q.Enabled());
  EXPECT_EQ(rig.Panel(4), "Get Id Failed. ");
  EXPECT_EQ(rig.settings.GetSetting("InMode", ""), "On");

  rig.line.SetPortOpen(false);
  rig.line.RefuseOpen("No device stands behind port 1.");
  form.mnuInter.OperatorClick();
  EXPECT_THAT(rig.Boxes(), ElementsAre(testing::_, "No device stands behind port 1.")) << "told once";
  EXPECT_TRUE(form.mnuOff.Checked() && form.mnuHD7340.Enabled());
}

TEST_F(InteractiveTest, PollsWithAHeartbeatOnlyWhileTheWindowIsActive) {
  Enter();
  for (const int frame : {1, 2, 3, 4, 0, 1}) {
    EXPECT_THAT(Tick(), ElementsAre(kGetId, kVideoSense));
    EXPECT_THAT(Heartbeat(), ElementsAre(frame));
  }
  rig.tool.SetActive(false);
  EXPECT_THAT(Tick(), IsEmpty());
  EXPECT_EQ(rig.tool.variables.ActivityFrame, 1);
  rig.tool.SetActive(true);
  form.StatBar(FrmStart::kExchangePanel).SetText("Sent");
  EXPECT_THAT(Tick(), IsEmpty()) << "an exchange has not come back yet";
  EXPECT_THAT(rig.Boxes(), IsEmpty());
  form.StatBar(FrmStart::kExchangePanel).SetText("Nack In");
  EXPECT_THAT(Tick(), ElementsAre(kGetId, kVideoSense)) << "a Nak is a sign of life";
  form.dPause.SetInterval(8000);
  form.dPause.SetEnabled(true);
  EXPECT_THAT(Tick(), IsEmpty()) << "an acknowledgement is awaited";
  form.dPause.SetEnabled(false);
  form.mnuAddParameter.OperatorClick();
  EXPECT_THAT(Tick(), IsEmpty()) << "a dialog stands";
  rig.tool.parameterDialogs.frmEditParameters.SetVisible(false);
  form.mnuOff.OperatorClick();
  Enter();
  Tick();
  EXPECT_THAT(Heartbeat(), ElementsAre(1)) << "it begins anew";
}

TEST_F(InteractiveTest, LocalModeSuspendsAndALostLinkEndsIt) {
  Enter();
  rig.line.Unit().SetLocal(true);
  Tick();
  EXPECT_THAT(rig.Boxes(), ElementsAre("Local Mode detected, Interactive mode suspended."));
  EXPECT_THAT(Tick(), ElementsAre(kVideoSense, kVideoSense))
      << "watched, without a word; a lone byte is no answer to a query";
  EXPECT_THAT(rig.Boxes(), IsEmpty());
  EXPECT_TRUE(rig.tool.variables.UnitLocalMode && form.mnuInter.Checked() && form.InterTime.Enabled());
  rig.line.Unit().SetLocal(false);
  EXPECT_THAT(Tick(), ElementsAre(kVideoSense));
  EXPECT_EQ(rig.Panel(1), "");
  EXPECT_THAT(Tick(), ElementsAre(kGetId, kVideoSense));
  EXPECT_FALSE(rig.tool.variables.UnitLocalMode);

  form.StatBar(FrmStart::kExchangePanel).SetText("ACK LOST");
  EXPECT_THAT(Tick(), IsEmpty());
  EXPECT_THAT(rig.Boxes(), ElementsAre("Comm Error, Interactive mode suspended, click OK to continue."));
  EXPECT_TRUE(form.mnuOff.Checked() && !form.mnuInter.Checked() && !form.InterTime.Enabled());
  EXPECT_EQ(rig.settings.GetSetting("InMode", ""), "Off");
}

TEST_F(InteractiveTest, FollowsTheUnitsStandardIfTheOperatorAgrees) {
  const std::string question = "Video Standard from box changed. Change 7340-Marlinset Video Standard?";
  Enter();
  rig.line.Unit().SetStandard(5);
  Tick();
  EXPECT_THAT(rig.Boxes(), ElementsAre(question));
  EXPECT_EQ(form.comVS.Text(), "1080i/60") << "refused: it comes again";
  rig.dialogs.answers = {BoxAnswer::kYes};
  EXPECT_THAT(Tick(), ElementsAre(kGetId, kVideoSense)) << "following sends nothing";
  EXPECT_EQ(form.comVS.Text(), "1080i/50");
  Tick();
  EXPECT_THAT(rig.Boxes(), IsEmpty());

  // A standard that the database does not know, and none at all.
  for (const int code : {5, 0}) {
    form.comVS.Clear();
    for (const char* standard : {"1080i/60", "NTSC"}) form.comVS.AddItem(standard);
    form.comVS.SetListIndex(0);
    rig.line.Unit().SetStandard(code);
    rig.dialogs.answers = {BoxAnswer::kYes};
    Tick();
    EXPECT_THAT(rig.Boxes(),
                ElementsAre(question, (code == 5 ? std::string("1080i/50") : std::string()) +
                                          " Input Video Standard not supported. No changes made."));
    EXPECT_EQ(form.comVS.Text(), "1080i/60");
  }
}

/// While a question stands the poll rests, and an unplugged cable is told once and ends the mode for good.
TEST_F(InteractiveTest, QuestionsDoNotPileUp) {
  Enter();
  rig.line.Unit().SetStandard(5);
  rig.dialogs.onShow = [this](const MessageBox& box) {
    if (box.buttons == BoxButtons::kYesNo) {
      rig.pump.Pass(20000);
      rig.line.Vanish();
    }
    return FakeDialogs::Default(box.buttons);
  };
  Tick();
  EXPECT_THAT(rig.Boxes(), ElementsAre(StartsWith("Video Standard from box changed."),
                                       StartsWith("The device behind port 1")));
  EXPECT_TRUE(form.mnuOff.Checked() && !form.InterTime.Enabled());
  EXPECT_THAT(Tick(), IsEmpty());
}

TEST_F(InteractiveTest, LeftDuringAPollIsLeft) {
  for (const int into : {50, 150}) {  // while the identification, the standard is awaited
    rig.line.Unit().Faults().mute = false;
    Enter();
    rig.line.Unit().Faults().mute = true;
    rig.pump.At(rig.pump.Now() + 5000 + into, [&] { form.mnuOff.OperatorClick(); });
    rig.pump.Pass(5000);
    EXPECT_TRUE(form.mnuOff.Checked());
    EXPECT_EQ(rig.line.Sent().size(), into == 50 ? 1U : 3U) << "the query is sent twice";
    EXPECT_THAT(rig.Boxes(), ElementsAre(StartsWith("Ensure that"))) << "no question about the standard";
    EXPECT_THAT(Heartbeat(), IsEmpty());
  }
  rig.line.Unit().Faults().mute = false;
  Enter();
  const std::int64_t entered = rig.pump.Now();
  rig.line.Unit().SetLocal(true);
  Tick();
  rig.pump.At(entered + 10050, [&] { form.mnuOff.OperatorClick(); });
  rig.pump.Pass(5000);
  EXPECT_FALSE(form.InterTime.Enabled()) << "while a unit in local mode is watched";
}

/// A unit that is unplugged while a box of a file command stands: the port stays closed, also when the unit
/// is back.
TEST_F(InteractiveTest, ALineThatGoesDuringADialogStaysAway) {
  Enter();
  const int openings = rig.line.Openings();
  rig.fileDialog.choices = {"/nowhere/Stage 4.qcf"};
  rig.dialogs.onShow = [this](const MessageBox& box) {
    if (rig.line.PortOpen()) rig.line.Vanish();
    return FakeDialogs::Default(box.buttons);
  };
  form.mnuSave.OperatorClick();
  EXPECT_THAT(rig.Boxes(), testing::Contains(StartsWith("The device behind port 1")));
  rig.line.Return();
  EXPECT_THAT(Tick(), IsEmpty());
  EXPECT_TRUE(form.mnuOff.Checked() && !form.mnuInter.Checked() && form.mnuHD7340.Enabled());
  EXPECT_EQ(rig.line.Openings(), openings);
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
    rig.line.Unit().SetManual(c.unitManual);
    rig.line.Unit().Faults().mute = c.mute;
    rig.line.ClearSent();
    (c.wantManual ? form.mnuMan : form.mnuAuto).OperatorClick();
    EXPECT_EQ(rig.Panel(3), c.panel);
    ASSERT_EQ(rig.line.Sent().size(), c.messages) << c.panel;
    EXPECT_EQ(ToHex(rig.line.Sent().front()), kVideoSense);
    EXPECT_EQ(rig.line.Unit().Manual(), c.mute ? c.unitManual : c.wantManual);
  }
  EXPECT_THAT(rig.Boxes(), ElementsAre("Mode Set error"));
  EXPECT_FALSE(form.mnuAuto.Checked() || form.mnuMan.Checked());
  EXPECT_EQ(form.pComBut.BackColor(), kRed);
}

/// A send that runs when the mode is entered is the send of the mode: polling begins when it ends.
TEST_F(InteractiveTest, EnteredDuringASend) {
  bool entered = false;
  rig.tool.commands.MessageSent.Connect([&](const SentMessage& message) {
    if (std::exchange(entered, true)) return;
    rig.pump.At(rig.pump.Now(), [&] { form.mnuInter.OperatorClick(); });
    (void)message;
  });
  form.bSConfig.Press();
  EXPECT_TRUE(form.mnuInter.Checked() && form.InterTime.Enabled());
  EXPECT_EQ(rig.tool.wholeSend.Result().end, SendEnd::kComplete);
  EXPECT_THAT(rig.Boxes(), IsEmpty());
}

}  // namespace
}  // namespace marlinset
