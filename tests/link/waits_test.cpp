// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

const char* const kCable =
    "Ensure that the PC is properly connected and the proper Com Port is selected from the Options Menu.";

TEST(AckWait, EndsWithTheAcknowledgementOrTheTimer) {
  const struct {
    const char* what;
    void (*prepare)(UnitModel& unit);
    bool acknowledged;
    std::int64_t lastsMs;
    const char* panel1;
  } kCases[] = {
      {"in time", [](UnitModel& unit) { unit.Faults().lateAcks = 99ms; }, true, 99, "Ack In"},
      {"late", [](UnitModel& unit) { unit.Faults().lateAcks = 101ms; }, false, 100, "Sent"},
      {"refused", [](UnitModel& unit) { unit.Faults().nak = 1; }, false, 100, "Nack In"},
      {"local mode", [](UnitModel& unit) { unit.SetLocal(true); }, false, 100, "Local Mode"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    LinkRig rig;
    rig.OpenIdentified();
    c.prepare(rig.line.Unit());
    rig.vars.PacketFields = {1, 5, 46};
    EXPECT_EQ(rig.comms.AckWait(), c.acknowledged);
    EXPECT_EQ(rig.pump.Now(), c.lastsMs);
    EXPECT_EQ(rig.Panel(1), c.panel1);
    EXPECT_FALSE(rig.form.dPause.Enabled());
    EXPECT_THAT(rig.Sent(), ElementsAre("1 5 46"));
  }
}

TEST(AckWait, IsLostWhenTheUnitBroadcastsInItsMiddle) {
  LinkRig rig;
  rig.OpenIdentified();
  rig.line.Unit().Faults().drop = 1;
  rig.line.Inject(EncodeFrame(Bytes{15, 0, 187}), 50);
  std::vector<std::string> texts;
  rig.form.StatBar(3).Changed.Connect([&] { texts.push_back(rig.Panel(3)); });
  EXPECT_FALSE(rig.commands.Send(CommandId::kVitcOn, Sender::kPanel));
  EXPECT_EQ(rig.pump.Now(), 100);
  EXPECT_THAT(rig.Sent(), ElementsAre("1 5 46", "15 0 33"));
  EXPECT_THAT(texts, ElementsAre("Broadcast Packet In", "Packet Out", "Mode Switched to Select"));
  EXPECT_THAT(rig.dialogs.Texts(),
              ElementsAre("Broadcast Mode detected, switched to Select Mode", "VITC Enable error 33"));
  rig.form.UpDown1.SetValue(21);
  rig.line.Unit().Faults().drop = 1;
  rig.line.Inject(EncodeFrame(Bytes{15, 0, 187}), rig.pump.Now() + 50);
  EXPECT_FALSE(rig.commands.Send(CommandId::kWhiteFlagLine, Sender::kWholeSend));
  EXPECT_EQ(rig.dialogs.Texts().back(), "White FlagLine Set error 21") << "Select has no field 3";
}

TEST(ReplyWait, AsksTwiceAtMost) {
  const struct {
    const char* what;
    void (*prepare)(UnitModel& unit);
    std::size_t sendings;
    std::int64_t lastsMs;
    const char* standard;  ///< when the wait ends
  } kCases[] = {
      {"in time", [](UnitModel& unit) { unit.Faults().lateFrames = 99ms; }, 1, 99, "1080i/60"},
      {"damaged", [](UnitModel& unit) { unit.Faults().corrupt = 1; }, 2, 100, ""},
      {"late", [](UnitModel& unit) { unit.Faults().lateFrames = 130ms; }, 2, 100, ""},
      {"no standard", [](UnitModel& unit) { unit.SetStandard(0); }, 1, 0, ""},
  };
  for (const auto& c : kCases) {
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
  }
}

TEST(ReplyWait, EndsAlsoWithinTheRepeatOfAnother) {
  LinkRig rig;
  rig.Open();
  rig.line.SetPace(1200);  // a message takes 50 ms
  rig.line.Unit().Faults().mute = true;
  rig.pump.At(170, [&] { rig.comms.ReplyWait({15, 0, 52}); });
  rig.comms.ReplyWait({15, 0, 52});
  EXPECT_EQ(rig.Sent().size(), 3U);
}

/// Ends waits of ten seconds, and a message that takes seconds to leave, after 30 ms.
TEST(Waits, EndWhenThePortOrTheProgramGoes) {
  using Body = void (*)(LinkRig&);
  const Body kEnds[] = {[](LinkRig& rig) { rig.line.Vanish(); },
                        [](LinkRig& rig) { rig.form.bClose.Press(); }, [](LinkRig& rig) { rig.pump.End(); }};
  const Body kWaits[] = {[](LinkRig& rig) { rig.comms.AckWait(); },
                         [](LinkRig& rig) { rig.comms.LockedAckWait(rig.form.TimerNew); },
                         [](LinkRig& rig) { rig.comms.ReplyWait(rig.vars.PacketFields); },
                         [](LinkRig& rig) { rig.form.bGetID.Press(); },
                         [](LinkRig& rig) { rig.commands.SendParameter(1); },
                         [](LinkRig& rig) { rig.identification.GetFirmware(); },
                         [](LinkRig& rig) {
                           rig.line.SetPace(10);
                           rig.comms.SendPacket(rig.vars.PacketFields);
                         }};
  for (const Body wait : kWaits) {
    for (const Body end : kEnds) {
      LinkRig rig;
      rig.Open();
      rig.line.Unit().Faults().mute = true;
      rig.form.mnuInter.SetChecked(true);
      rig.vars.PacketFields = {1, 5, 46};
      rig.pump.At(30, [&] { end(rig); });
      wait(rig);
      EXPECT_EQ(rig.pump.Now(), 30);
      for (const Timer* timer :
           {&rig.form.dPause, &rig.form.TimerNew, &rig.form.timeRes, &rig.form.AboutTimer1}) {
        EXPECT_FALSE(timer->Enabled()) << timer->Name();
      }
      EXPECT_FALSE(rig.vars.WaitFullReply);
      if (rig.line.PortOpen()) continue;
      EXPECT_EQ(rig.form.pComBut.BackColor(), kRed);
      EXPECT_THAT(rig.dialogs.Texts(), testing::Not(testing::Contains(kCable))) << "the operator knows why";
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
  rig.line.Unit().Faults().mute = false;
  rig.form.bGetID.Press();
  EXPECT_EQ(rig.Panel(4), "HD7340");
  rig.line.Unit().SetLocal(true);
  rig.form.bGetID.Press();
  EXPECT_EQ(rig.Panel(4), "Get Id Failed. ") << "a model from before does not count";
  EXPECT_EQ(rig.Sent(), std::vector<std::string>(4, "15 0 53"));
  EXPECT_THAT(rig.dialogs.Texts(),
              ElementsAre(kCable, kCable, "Local Mode detected, Interactive mode suspended."));
}

TEST(GetFirmware, AsksEverySecondUntilAWholeTextHasCome) {
  LinkRig rig;
  rig.Open();
  rig.line.SetGate(false);
  rig.form.mnuInter.SetChecked(true);
  rig.line.Unit().Faults().mute = true;
  rig.pump.At(500, [&] { rig.identification.GetFirmware(); });  // one is asking already
  rig.line.Inject(Bytes(19, kAck), 1600);
  rig.line.Inject({kAck}, 1700);
  rig.pump.At(1650, [&] { EXPECT_EQ(rig.line.InBufferCount(), 19U) << "too short, left alone"; });
  rig.pump.At(1750, [&] { EXPECT_TRUE(rig.line.InBufferCount() == 0 && !rig.vars.WaitFullReply); });
  rig.pump.At(2500, [&] { rig.line.Unit().Faults().mute = false; });
  rig.identification.GetFirmware();
  EXPECT_EQ(rig.vars.UnitIdText, "MARLIN40 020E00");
  EXPECT_EQ(rig.pump.Now(), 3000);
  EXPECT_EQ(rig.Sent(), std::vector<std::string>(4, "15 0 54 1"));
}

}  // namespace
}  // namespace marlinset
