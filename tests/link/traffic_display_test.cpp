// SPDX-License-Identifier: GPL-3.0-or-later
// What indicator, heartbeat, panels and buttons show while the line opens, closes, sends and fails.
#include <gmock/gmock.h>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

constexpr const char* kRefusal = "/dev/ttyUSB0 is in use by another program.";

std::vector<Button*> LinkButtons(FrmStart& form) {
  return {&form.bOpen, &form.bSend, &form.bClose, &form.bGetID, &form.bBroad, &form.bSConfig};
}

void ShowHeartbeat(LinkRig& rig) {
  for (const int i : rig.form.Image1.Indices()) rig.form.Image1(i).SetVisible(true);
}

/// Something that ends the heartbeat, done while its images are shown.
struct Ending {
  const char* what;
  void (*happen)(LinkRig& rig);
  Color indicator;
};

TEST(TrafficDisplay, HidesTheHeartbeat) {
  const Ending kEndings[] = {
      {"opened", [](LinkRig& rig) { rig.form.bOpen.Press(); }, kGreen},
      {"cannot be opened",
       [](LinkRig& rig) {
         rig.line.RefuseOpen(kRefusal);
         rig.form.bOpen.Press();
       },
       kRed},
      {"closed",
       [](LinkRig& rig) {
         rig.Open();
         rig.form.bClose.Press();
       },
       kRed},
      {"closed after a fault", [](LinkRig& rig) { rig.ports.ClosePort(); }, kRed},
      {"sent on a closed port",
       [](LinkRig& rig) {
         rig.comms.SendPacket({15, 0, 33});
       },
       kRed},
      {"gone out to the last byte",
       [](LinkRig& rig) {
         rig.Open();
         rig.line.SetPace(9600);
         rig.pump.At(2, [&] { ShowHeartbeat(rig); });
         rig.comms.SendPacket({15, 0, 33});
       },
       kYellow},
      {"bytes have come",
       [](LinkRig& rig) {
         rig.Open();
         rig.Receive({0x00});
       },
       kGreen},
      {"a fault in what came",
       [](LinkRig& rig) {
         rig.Open();
         rig.line.OnComm({});
         rig.Receive({0x02});
         rig.comms.ReceivePacket();
       },
       kYellow},
      {"identification failed",
       [](LinkRig& rig) {
         rig.line.Unit().Faults().mute = true;
         rig.pump.At(9000, [&] { ShowHeartbeat(rig); });
         rig.form.bGetID.Press();
       },
       kRed},
  };
  for (const Ending& c : kEndings) {
    SCOPED_TRACE(c.what);
    LinkRig rig;
    ShowHeartbeat(rig);
    c.happen(rig);
    for (const int i : rig.form.Image1.Indices()) EXPECT_FALSE(rig.form.Image1(i).Visible()) << i;
    EXPECT_EQ(rig.form.pComBut.BackColor(), c.indicator);
  }
}

TEST(TrafficDisplay, EnablesTheButtonsOnceARefusedSendWasRead) {
  LinkRig rig;
  EnableLinkButtons(rig.form, false);
  rig.dialogs.onShow = [&](const MessageBox&) {
    for (const Button* button : LinkButtons(rig.form)) EXPECT_FALSE(button->Enabled()) << button->Name();
    EXPECT_EQ(rig.Panel(1), "Ack In");
    return BoxAnswer::kOk;
  };
  rig.comms.SendPacket({15, 0, 33});
  for (const Button* button : LinkButtons(rig.form)) EXPECT_TRUE(button->Enabled()) << button->Name();
}

/// A message that takes seconds to leave, and what happens to the line after 10 ms.
TEST(TrafficDisplay, WaitsNoLongerForBytesThatCannotLeave) {
  struct Cut {
    void (*happen)(LinkRig& rig);
    Color indicator;
  };
  const Cut kCuts[] = {{[](LinkRig& rig) { rig.line.Vanish(); }, kRed},
                       {[](LinkRig& rig) { rig.form.bClose.Press(); }, kRed},
                       {[](LinkRig& rig) { rig.pump.End(); }, kYellow}};
  for (const Cut& cut : kCuts) {
    LinkRig rig;
    rig.Open();
    rig.line.SetPace(10);
    rig.pump.At(10, [&] { cut.happen(rig); });
    rig.comms.SendPacket({15, 0, 33});
    EXPECT_EQ(rig.pump.Now(), 10);
    EXPECT_EQ(rig.form.pComBut.BackColor(), cut.indicator);
  }
}

/// The mode is left while the unit can still be reached.
TEST(TrafficDisplay, LeavesInteractiveModeBeforeThePortCloses) {
  using Change = std::pair<std::string, bool>;
  struct Case {
    void (*close)(LinkRig& rig);
    std::vector<Change> panel2;  ///< each text with whether the port was open
  };
  const Case kCases[] = {
      {[](LinkRig& rig) { rig.form.bClose.Press(); }, {{"Offline", true}, {"Port Closed ", false}}},
      {[](LinkRig& rig) { rig.ports.ClosePort(); }, {{"Offline", true}}},
      {[](LinkRig& rig) { rig.form.mnuCom2.OperatorClick(); }, {{"Offline", true}, {"Port Closed ", false}}},
  };
  for (const Case& c : kCases) {
    LinkRig rig;
    rig.line.SetPorts({1, 2});
    rig.ports.SetUpCom();
    rig.form.bOpen.Press();
    rig.form.mnuInter.SetChecked(true);
    rig.form.mnuOff.SetChecked(false);
    std::vector<Change> changes;
    rig.form.StatBar(2).Changed.Connect([&] { changes.emplace_back(rig.Panel(2), rig.line.PortOpen()); });
    c.close(rig);
    EXPECT_EQ(changes, c.panel2);
    EXPECT_FALSE(rig.form.mnuInter.Checked());
    EXPECT_EQ(rig.form.pComBut.BackColor(), kRed);
    EXPECT_EQ(rig.form.StatBar(3).Picture(), "Image2(2)");
  }
}

TEST(TrafficDisplay, GoesOffLineAlsoWhenThePortIsClosedAlready) {
  LinkRig rig;
  rig.form.mnuInter.SetChecked(true);
  rig.form.mnuOff.SetChecked(false);
  rig.form.InterTime.SetEnabled(true);
  rig.form.chPrev.SetValue(1);
  EnableLinkButtons(rig.form, false);
  rig.ports.ClosePort();
  EXPECT_TRUE(rig.form.mnuOff.Checked() && !rig.form.mnuInter.Checked());
  EXPECT_FALSE(rig.form.InterTime.Enabled());
  EXPECT_EQ(rig.Panel(2), "Offline");
  EXPECT_EQ(rig.form.StatBar(3).Picture(), "Image2(2)");
  EXPECT_EQ(rig.form.chPrev.Value(), 1) << "only an open port is left in order";
  for (const Button* button : LinkButtons(rig.form)) EXPECT_TRUE(button->Enabled()) << button->Name();
}

TEST(TrafficDisplay, TellsOnceThatAPortCannotBeOpened) {
  for (const char* button : {"bOpen", "bGetID", "bSend", "bBroad", "bSConfig"}) {
    SCOPED_TRACE(button);
    LinkRig rig;
    rig.line.RefuseOpen(kRefusal);
    rig.form.tInput.SetText("2,3,");
    rig.form.StatBar(1).SetText("Ack In");
    dynamic_cast<Button*>(rig.form.Find(button))->Press();
    EXPECT_THAT(rig.dialogs.Texts(), ElementsAre(kRefusal));
    EXPECT_EQ(rig.form.tInput.Text() + rig.Panel(1), "");
    EXPECT_EQ(rig.Panel(2), "Port Closed");
    EXPECT_EQ(rig.Panel(3), "") << "nothing was sent";
    EXPECT_EQ(rig.Panel(4), std::string_view(button) == "bGetID" ? "Getting ID" : "");
    EXPECT_EQ(rig.form.dPause.Interval(), 10000);
    EXPECT_EQ(rig.pump.Now(), 0);
    for (const Button* other : LinkButtons(rig.form)) EXPECT_TRUE(other->Enabled()) << other->Name();
  }
}

TEST(TrafficDisplay, KeepsWhatTheUnitSaidOfItselfWhileThePortIsClosed) {
  LinkRig rig;
  rig.Open();
  rig.Receive({kLocalMode});
  rig.form.bClose.Press();
  rig.form.bOpen.Press();
  EXPECT_TRUE(rig.vars.UnitLocalMode);
  rig.ports.ClosePort();
  EXPECT_TRUE(rig.vars.UnitLocalMode);
}

}  // namespace
}  // namespace marlinset
