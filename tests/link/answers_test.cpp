// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using namespace std::chrono_literals;
using enum Verdict;
using testing::ElementsAre;

/// Two settings, one behind the other, and what becomes of them.
struct Case {
  const char* what;
  void (*first)(LinkRig& rig);    ///< before the first goes out, at 0 ms
  void (*between)(LinkRig& rig);  ///< before the second
  Verdict verdicts[2];
};

void Nothing(LinkRig&) {}
void Say(LinkRig& rig, Bytes bytes, std::int64_t inMs) {
  rig.line.Inject(std::move(bytes), rig.pump.Now() + inMs);
}
UnitFaults& Faults(LinkRig& rig) {
  return rig.line.Unit().Faults();
}

const Case kCases[] = {
    {"nothing wrong", Nothing, Nothing, {kAcknowledged, kAcknowledged}},
    {"refused", [](LinkRig& rig) { Faults(rig).nak = 1; }, Nothing, {kRefused, kAcknowledged}},
    {"nothing came", [](LinkRig& rig) { Faults(rig).drop = 1; }, Nothing, {kUnacknowledged, kAcknowledged}},
    {"local mode",
     [](LinkRig& rig) { rig.line.Unit().SetLocal(true); },
     [](LinkRig& rig) { rig.line.Unit().SetLocal(false); },
     {kRefused, kAcknowledged}},
    {"refused, and a stray Ack in the wait",
     [](LinkRig& rig) {
       Faults(rig).nak = 1;
       Say(rig, {kAck}, 99);
     },
     Nothing,
     {kUncertain, kAcknowledged}},
    {"refused two times over",
     [](LinkRig& rig) { Faults(rig).nak = Faults(rig).twice = 1; },
     Nothing,
     {kRefused, kAcknowledged}},
    {"an Ack too many", [](LinkRig& rig) { Faults(rig).twice = 1; }, Nothing, {kUncertain, kAcknowledged}},
    {"an Ack and a Nak in one piece",
     [](LinkRig& rig) {
       Faults(rig).drop = 1;
       Say(rig, {kAck, kNak}, 10);
     },
     Nothing,
     {kUncertain, kAcknowledged}},
    {"an Ack hidden behind a frame",
     [](LinkRig& rig) {
       Faults(rig).drop = 1;
       Bytes bytes = EncodeFrame(Bytes{2, 8, 48});
       bytes.push_back(kAck);
       Say(rig, bytes, 10);
     },
     Nothing,
     {kUncertain, kAcknowledged}},
    {"a second answer behind the wait",
     Nothing,
     [](LinkRig& rig) { rig.Receive({kNak}); },
     {kUncertain, kAcknowledged}},
    {"a refusal, and an Ack behind its wait",
     [](LinkRig& rig) { Faults(rig).nak = 1; },
     [](LinkRig& rig) { rig.Receive({kAck}); },
     {kUncertain, kAcknowledged}},
    {"an Ack behind its wait is not the next one's",
     [](LinkRig& rig) { Faults(rig).drop = 2; },
     [](LinkRig& rig) { rig.Receive({kAck}); },
     {kUnacknowledged, kUnacknowledged}},
    {"an Ack in the next one's wait, which is refused",
     [](LinkRig& rig) { Faults(rig).lateAcks = 150ms; },
     [](LinkRig& rig) { Faults(rig).nak = 1; },
     {kUnacknowledged, kUncertain}},
    {"an Ack in the next one's wait, and that one's own behind it",
     [](LinkRig& rig) { Faults(rig).lateAcks = 150ms; },
     [](LinkRig& rig) { rig.pump.At(160, [&rig] { rig.pump.Pass(100); }); },
     {kUnacknowledged, kUncertain}},
    {"an Ack while the next one leaves",
     Nothing,
     [](LinkRig& rig) {
       rig.line.SetPace(1200);
       Say(rig, {kAck}, 20);
     },
     {kUncertain, kUncertain}},
    {"another message in the middle of the wait",
     [](LinkRig& rig) {
       Faults(rig).lateAcks = 50ms;
       rig.pump.At(10, [&rig] { rig.form.bSend.Press(); });
     },
     Nothing,
     {kUncertain, kAcknowledged}},
    {"one setting in the middle of the other's wait",
     [](LinkRig& rig) {
       Faults(rig).drop = 1;
       rig.pump.At(10, [&rig] { rig.commands.Send(CommandId::kVitcOn, Sender::kPanel); });
     },
     Nothing,
     {kUncertain, kAcknowledged}},
    {"an Ack behind a query",
     Nothing,
     [](LinkRig& rig) {
       Say(rig, {kAck}, 10);
       Faults(rig).lateFrames = 20ms;
       rig.comms.ReplyWait({15, 0, 52});
     },
     {kUncertain, kAcknowledged}},
    {"a Nak behind a query",
     Nothing,
     [](LinkRig& rig) {
       Say(rig, {kNak}, 10);
       Faults(rig).lateFrames = 20ms;
       rig.comms.ReplyWait({15, 0, 52});
     },
     {kUncertain, kAcknowledged}},
    {"an Ack among noise",
     [](LinkRig& rig) {
       Faults(rig).drop = 1;
       Say(rig, {0xFF, kNak}, 1);
       Say(rig, {kAck}, 35);
     },
     Nothing,
     {kUncertain, kAcknowledged}},
    {"half a frame that hides a Nak",
     [](LinkRig& rig) {
       Faults(rig).drop = 1;
       Say(rig, {kStartMark, 4, 15, kNak}, 1);
       Say(rig, {kAck}, 60);
     },
     Nothing,
     {kUncertain, kAcknowledged}},
    {"a query in local mode",
     Nothing,
     [](LinkRig& rig) {
       rig.line.Unit().SetLocal(true);
       rig.comms.ReplyWait({15, 0, 52});
       rig.pump.Pass(1);  // the query was sent twice
       rig.line.Unit().SetLocal(false);
     },
     {kAcknowledged, kAcknowledged}},
    {"the Ack of what needs none",
     Nothing,
     [](LinkRig& rig) { rig.commands.Send(CommandId::kManualSelection, Sender::kPanel); },
     {kAcknowledged, kAcknowledged}},
};

TEST(Verdict, SaysWhatTheAnswersAreWorth) {
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.what);
    LinkRig rig;
    rig.OpenIdentified();
    std::vector<std::pair<int, Verdict>> told;
    rig.commands.VerdictChanged.Connect([&](const SentMessage& message, Verdict before) {
      for (auto& [number, verdict] : told) {
        if (number != message.number) continue;
        EXPECT_EQ(verdict, before);
        verdict = *message.verdict;
      }
    });
    rig.commands.MessageSent.Connect([&](const SentMessage& message) {
      if (message.meaning.starts_with("Number of")) told.emplace_back(message.number, *message.verdict);
    });
    c.first(rig);
    rig.commands.Send(CommandId::kVitcSource, Sender::kWholeSend);
    c.between(rig);
    const bool counted = told.size() == 1;
    rig.commands.Send(CommandId::kVitcSource, Sender::kWholeSend);
    rig.pump.Pass(300);
    ASSERT_TRUE(counted && told.size() == 2);
    EXPECT_STREQ(NameOf(told[0].second), NameOf(c.verdicts[0]));
    EXPECT_STREQ(NameOf(told[1].second), NameOf(c.verdicts[1]));
  }
}

}  // namespace
}  // namespace marlinset
