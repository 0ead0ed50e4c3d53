// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr LineTime Ms(int count) {
  return std::chrono::milliseconds{count};
}

struct AckCase {
  const char* what;
  void (*prepare)(UnitModel& unit);
  bool acknowledged;
  std::int64_t lastsMs;
  const char* panel1;
};

TEST(AckWait, EndsWithTheAcknowledgementOrTheTimer) {
  const AckCase kCases[] = {
      {"in time", [](UnitModel& unit) { unit.Faults().lateAcks = Ms(99); }, true, 99, "Ack In"},
      {"late", [](UnitModel& unit) { unit.Faults().lateAcks = Ms(101); }, false, 100, "Sent"},
      {"never", [](UnitModel& unit) { unit.Faults().drop = 1; }, false, 100, "Sent"},
      {"refused", [](UnitModel& unit) { unit.Faults().nak = 1; }, false, 100, "Nack In"},
      {"local mode", [](UnitModel& unit) { unit.SetLocal(true); }, false, 100, "Local Mode"},
  };
  for (const AckCase& c : kCases) {
    SCOPED_TRACE(c.what);
    LinkRig rig;
    rig.OpenIdentified();
    c.prepare(rig.line.Unit());
    const std::int64_t start = rig.pump.Now();
    rig.vars.PacketFields = {1, 5, 46};
    EXPECT_EQ(rig.comms.AckWait(), c.acknowledged);
    EXPECT_EQ(rig.pump.Now() - start, c.lastsMs);
    EXPECT_EQ(rig.Panel(1), c.panel1);
    EXPECT_FALSE(rig.form.dPause.Enabled());
    EXPECT_THAT(rig.Sent(), ElementsAre("1 5 46"));
    rig.pump.Pass(10);  // too late for the wait, but the status bar shows it
    EXPECT_EQ(rig.Panel(1), std::string(c.what) == "late" ? "Ack In" : c.panel1);
  }
}

TEST(AckWait, LocksOtherSendersOutWhenTold) {
  LinkRig rig;
  rig.OpenIdentified();
  rig.line.Unit().SetLocal(true);
  bool locked = false;
  rig.pump.At(rig.pump.Now() + 9000, [&] { locked = rig.vars.UnitLocalMode; });
  rig.vars.PacketFields = {2, 8, 35, 1};
  EXPECT_FALSE(rig.comms.LockedAckWait(rig.form.TimerNew));
  EXPECT_EQ(rig.pump.Now(), 10000);
  EXPECT_TRUE(locked);
  EXPECT_FALSE(rig.vars.UnitLocalMode);  // also when the unit has said that it is
}

TEST(AckWait, IsLostWhenTheUnitBroadcastsInItsMiddle) {
  LinkRig rig;
  rig.OpenIdentified();
  rig.line.Unit().Faults().drop = 1;
  rig.line.Inject(EncodeFrame(Bytes{15, 0, 187}), 50);
  rig.vars.PacketFields = {1, 5, 46};
  EXPECT_FALSE(rig.comms.AckWait());
  EXPECT_EQ(rig.Panel(1), "Sent");
  EXPECT_EQ(rig.pump.Now(), 100);
  EXPECT_THAT(rig.Sent(), ElementsAre("1 5 46", "15 0 33"));
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("Broadcast Mode detected, switched to Select Mode"));
}

struct ReplyCase {
  const char* what;
  void (*prepare)(UnitModel& unit);
  std::size_t sendings;
  std::int64_t lastsMs;
  const char* standard;       ///< when the wait ends
  const char* standardLater;  ///< when everything has come
};

TEST(ReplyWait, AsksTwiceAtMost) {
  const ReplyCase kCases[] = {
      {"at once", [](UnitModel&) {}, 1, 0, "1080i/60", "1080i/60"},
      {"in time", [](UnitModel& unit) { unit.Faults().lateFrames = Ms(99); }, 1, 99, "1080i/60", "1080i/60"},
      {"damaged", [](UnitModel& unit) { unit.Faults().corrupt = 1; }, 2, 100, "", "1080i/60"},
      {"late", [](UnitModel& unit) { unit.Faults().lateFrames = Ms(130); }, 2, 100, "", "1080i/60"},
      {"never", [](UnitModel& unit) { unit.Faults().mute = true; }, 2, 100, "", ""},
      {"local mode", [](UnitModel& unit) { unit.SetLocal(true); }, 2, 100, "", ""},
      {"no standard", [](UnitModel& unit) { unit.SetStandard(0); }, 1, 0, "", ""},
  };
  for (const ReplyCase& c : kCases) {
    SCOPED_TRACE(c.what);
    LinkRig rig;
    rig.Open();
    rig.vars.UnitStandardText = "from before";
    c.prepare(rig.line.Unit());
    rig.comms.ReplyWait({15, 0, 52});
    EXPECT_EQ(rig.pump.Now(), c.lastsMs);
    EXPECT_EQ(rig.vars.UnitStandardText, c.standard);
    EXPECT_EQ(rig.Sent(), std::vector<std::string>(c.sendings, "15 0 52"));
    EXPECT_FALSE(rig.form.timeRes.Enabled());
    rig.pump.Pass(200);
    EXPECT_EQ(rig.vars.UnitStandardText, c.standardLater);
    EXPECT_EQ(rig.Sent().size(), c.sendings);
  }
}

TEST(ReplyWait, RepeatsTheFieldsAsTheyStandThen) {
  LinkRig rig;
  rig.Open();
  rig.line.Unit().Faults().mute = true;
  rig.pump.At(50, [&] { rig.vars.PacketFields = {15, 0, 34}; });
  rig.comms.ReplyWait({15, 0, 52});
  EXPECT_THAT(rig.Sent(), ElementsAre("15 0 52", "15 0 34"));
}

/// Waits of ten seconds that something ends after 30 ms.
TEST(Waits, EndWhenThePortOrTheProgramGoes) {
  using Body = void (*)(LinkRig&);
  const Body kEnds[] = {[](LinkRig& rig) { rig.line.Vanish(); },
                        [](LinkRig& rig) { rig.form.bClose.Press(); }, [](LinkRig& rig) { rig.pump.End(); }};
  const Body kWaits[] = {[](LinkRig& rig) { rig.comms.AckWait(); },
                         [](LinkRig& rig) { rig.comms.AckWait(rig.form.TimerNew); },
                         [](LinkRig& rig) { rig.comms.LockedAckWait(rig.form.TimerNew); },
                         [](LinkRig& rig) {
                           rig.comms.ReplyWait({15, 0, 52});
                         },
                         [](LinkRig& rig) { rig.form.bGetID.Press(); },
                         [](LinkRig& rig) { rig.commands.SendParameter(1); },
                         [](LinkRig& rig) {
                           rig.form.mnuInter.SetChecked(true);
                           rig.identification.GetFirmware();
                         }};
  for (const Body wait : kWaits) {
    for (const Body end : kEnds) {
      LinkRig rig;
      rig.Open();
      rig.line.Unit().Faults().mute = true;
      rig.vars.PacketFields = {1, 5, 46};
      rig.pump.At(30, [&] { end(rig); });
      wait(rig);
      EXPECT_EQ(rig.pump.Now(), 30);
      for (const Timer* timer :
           {&rig.form.dPause, &rig.form.TimerNew, &rig.form.timeRes, &rig.form.AboutTimer1}) {
        EXPECT_FALSE(timer->Enabled()) << timer->Name();
      }
      EXPECT_FALSE(rig.vars.WaitFullReply);
    }
  }
}

TEST(GetID, WaitsTenSecondsTheFirstTimeAndATenthOfASecondFromThenOn) {
  LinkRig rig;
  rig.line.Unit().Faults().mute = true;
  for (const std::int64_t end : {10000, 10100}) {
    rig.form.bGetID.Press();
    EXPECT_EQ(rig.pump.Now(), end);
    EXPECT_EQ(rig.Panel(4), "Get Id Failed. ");
    EXPECT_EQ(rig.form.pComBut.BackColor(), kRed);
  }
  EXPECT_EQ(rig.line.Openings(), 1);
  EXPECT_THAT(rig.Sent(), ElementsAre("15 0 53", "15 0 53"));
  EXPECT_EQ(
      rig.dialogs.Texts(),
      std::vector<std::string>(2,
                               "Ensure that the PC is properly connected and the proper Com Port is selected "
                               "from the Options Menu."));
}

TEST(GetID, KnowsALocalUnitAndForgetsAModelFromBefore) {
  LinkRig rig;
  rig.form.bGetID.Press();
  EXPECT_EQ(rig.Panel(4), "HD7340");
  EXPECT_EQ(rig.pump.Now(), 0);
  EXPECT_EQ(rig.form.dPause.Interval(), 100);
  rig.line.Unit().SetLocal(true);
  rig.form.bGetID.Press();
  EXPECT_EQ(rig.Panel(4), "Get Id Failed. ");
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("Local Mode detected, Interactive mode suspended."));
}

TEST(GetID, DoesNotBlameTheCableOfAPortThatWasClosed) {
  LinkRig rig;
  rig.line.Unit().Faults().mute = true;
  rig.pump.At(30, [&] { rig.form.bClose.Press(); });
  rig.form.bGetID.Press();
  EXPECT_EQ(rig.Panel(4), "Getting ID");
  EXPECT_EQ(rig.form.dPause.Interval(), 100);
  EXPECT_THAT(rig.dialogs.Texts(), IsEmpty());
}

TEST(SelectAndBroadcast, OpenThePortAndAwaitNothing) {
  LinkRig rig;
  rig.line.Unit().Faults().mute = true;
  rig.form.bBroad.Press();
  EXPECT_EQ(rig.Panel(3), "Packet Out");
  rig.form.bSend.Press();
  EXPECT_EQ(rig.Panel(3), "Mode Switched to Select");
  EXPECT_THAT(rig.Sent(), ElementsAre("15 0 34", "15 0 33"));
  EXPECT_EQ(rig.pump.Now(), 0);
}

TEST(GetFirmware, AsksEverySecondUntilTheTextHasCome) {
  LinkRig rig;
  rig.Open();
  rig.form.mnuInter.SetChecked(true);
  rig.line.Unit().Faults().mute = true;
  rig.pump.At(500, [&] { rig.identification.GetFirmware(); });  // one is asking already
  rig.pump.At(2500, [&] { rig.line.Unit().Faults().mute = false; });
  rig.identification.GetFirmware();
  EXPECT_EQ(rig.vars.UnitIdText, "MARLIN40 020E00");
  EXPECT_EQ(rig.pump.Now(), 3000);
  EXPECT_EQ(rig.Sent(), std::vector<std::string>(4, "15 0 54 1"));
  EXPECT_FALSE(rig.vars.WaitFullReply);
  EXPECT_THAT(rig.dialogs.Texts(), IsEmpty());
}

TEST(GetFirmware, LeavesAShortReplyAloneForAFullSecond) {
  LinkRig rig;
  rig.Open();
  rig.form.mnuInter.SetChecked(true);
  rig.line.Unit().Faults().mute = true;
  rig.form.AboutTimer1.SetEnabled(true);
  rig.pump.Pass(700);
  std::size_t unread = 0;
  rig.pump.At(1600, [&] {
    rig.line.SetGate(false);
    rig.line.Inject(Bytes(19, kAck), 1600);
  });
  rig.pump.At(1650, [&] { unread = rig.line.InBufferCount(); });
  rig.pump.At(1699, [&] { EXPECT_EQ(rig.Sent().size(), 1U); });
  rig.pump.At(1701, [&] {
    EXPECT_EQ(rig.Sent().size(), 2U);
    rig.identification.StopFirmwareQuery();
  });
  rig.identification.GetFirmware();
  EXPECT_EQ(unread, 19U);
  EXPECT_EQ(rig.pump.Now(), 1701);
}

TEST(GetFirmware, EndsWithInteractiveModeOrItsDialog) {
  for (const bool byDialog : {true, false}) {
    LinkRig rig;
    rig.Open();
    rig.form.mnuInter.SetChecked(true);
    rig.line.Unit().Faults().mute = true;
    rig.vars.UnitIdText = "from before";
    rig.pump.At(2500, [&] {
      rig.form.mnuInter.SetChecked(byDialog);
      if (byDialog) rig.identification.StopFirmwareQuery();
    });
    rig.identification.GetFirmware();
    EXPECT_EQ(rig.vars.UnitIdText, "");
    EXPECT_LE(rig.pump.Now(), 3000);
    EXPECT_FALSE(rig.vars.WaitFullReply);
  }
}

}  // namespace
}  // namespace marlinset
