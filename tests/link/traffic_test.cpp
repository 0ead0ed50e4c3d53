// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/traffic.h"

#include <algorithm>
#include <optional>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// All but the time, separated by bars.
std::string LineOf(const TrafficRow& row) {
  std::string line;
  for (std::size_t column = 1; column < kTrafficColumns; ++column)
    line += (column > 1 ? " | " : "") + TrafficText(row, column);
  return line;
}

struct TrafficTest : testing::Test, LinkRig {
  std::vector<std::string> Take() {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < traffic->Count(); ++i) lines.push_back(LineOf(*traffic->At(i)));
    traffic->Clear();
    return lines;
  }

  std::optional<Traffic> traffic{std::in_place, pump, comms, commands};
};

TEST_F(TrafficTest, SaysOfEachMessageWhatItMeansAndWhatBecameOfIt) {
  OpenIdentified();
  EXPECT_THAT(Take(), ElementsAre("To unit | Identification? | 15 0 53 | 02 03 0F 00 35 B9 | 0 ms",
                                  StartsWith("From unit | Identification: HD7340 | 15 0 53 2 ")));
  struct Case {
    void (*fault)(UnitFaults& faults);
    const char* sent;
    std::vector<std::string> came;
  };
  const Case kCases[] = {
      {[](UnitFaults&) {}, "0 ms", {"From unit | Acknowledged |  | 04 | "}},
      {[](UnitFaults& faults) { faults.nak = 1; }, "refused", {"From unit | Refused |  | 05 | "}},
      {[](UnitFaults& faults) { faults.mute = true; }, "no answer", {}},
  };
  for (const Case& c : kCases) {
    c.fault(line.Unit().Faults());
    commands.Send(CommandId::kVitcOn, Sender::kWholeSend);
    std::vector<std::string> expected{"To unit | VITC on | 1 5 46 | 02 03 01 05 2E C9 | " +
                                      std::string(c.sent)};
    expected.insert(expected.end(), c.came.begin(), c.came.end());
    EXPECT_THAT(Take(), ElementsAreArray(expected));
  }
  commands.Send(CommandId::kVitcOn, Sender::kWholeSend);
  pump.Pass(51);
  const Traffic::Row late = traffic->At(0);
  Receive({kNak});
  EXPECT_THAT(LineOf(*late), EndsWith("no answer"));
  Receive({kAck});
  EXPECT_THAT(LineOf(*late), EndsWith("late, 151 ms"));
  traffic->Clear();
  comms.ReplyWait(FieldsOf(CommandId::kVideoSense));
  const std::string query = "To unit | Video status? | 15 0 52 | 02 03 0F 00 34 BA | ";
  const Traffic::Row repeat = traffic->At(1);
  EXPECT_THAT(Take(), ElementsAre(query + "no answer", query + "awaited")) << "asked again";
  line.Unit().Faults().mute = false;
  comms.SendUnanswered();
  EXPECT_EQ(repeat->answer, TrafficAnswer::kMissing) << "the next message has left";
  traffic->Clear();
  line.Unit().Faults().corrupt = 1;
  comms.ReplyWait(FieldsOf(CommandId::kVideoSense));
  pump.Pass(0);
  const std::vector<std::string> asked = Take();
  ASSERT_EQ(asked.size(), 4U) << testing::PrintToString(asked);
  EXPECT_THAT(asked[1], HasSubstr("wrong checksum"));
  EXPECT_EQ(asked[2], query + "0 ms");
  EXPECT_THAT(asked[3], Not(HasSubstr("unasked")));
  commands.Send(CommandId::kAutoSelection, Sender::kPanel);
  EXPECT_THAT(Take().front(), StartsWith("To unit | Automatic selection of the standard | 15 0 192 0 0 0"));
}

TEST_F(TrafficTest, ComplementsAMessageWhenItsAnswerTurnsOutToBeWorthLess) {
  OpenIdentified();
  traffic->Clear();
  commands.Send(CommandId::kVitcOn, Sender::kWholeSend);
  const Traffic::Row sent = traffic->At(0);
  EXPECT_EQ(sent->answer, TrafficAnswer::kAnswered);
  commands.Send(CommandId::kVideoSense, Sender::kWholeSend);
  std::vector<std::int64_t> changed;
  traffic->Changed.Connect([&](std::int64_t number) { changed.push_back(number); });
  Receive({kAck});
  EXPECT_EQ(sent->answer, TrafficAnswer::kUncertain);
  EXPECT_THAT(changed, ElementsAre(sent->number + 4, sent->number));
}

TEST_F(TrafficTest, NamesWhatComesUnaskedAndWhatNobodyUnderstands) {
  OpenIdentified();
  traffic->Clear();
  const std::pair<Bytes, std::vector<std::string>> kCases[] = {
      {EncodeFrame(Bytes{15, 0, 52, 0xC4}), {"Video status: 1080i/60, manual, no video, unasked"}},
      {EncodeFrame(Bytes{15, 0, 53, 99}), {"Identification: unknown model 99, unasked"}},
      {EncodeFrame(Bytes{1, 5, 22, 0}), {"Notice that the tool does not use, unasked"}},
      {EncodeFrame(Bytes{1, 5, 23, 0}), {"Unknown command, unasked"}},
      {EncodeFrame(Bytes{1, 6, 22}), {"Wrong packet ID, unasked"}},
      {EncodeFrame(Bytes{9, 0, 22}), {"Unknown address, unasked"}},
      {EncodeFrame(Bytes{15, 0, 54, 1}), {"Frame that is too short, unasked"}},
      {{kStartMark, 3, 15, 0, 52, 0}, {"Frame with a wrong checksum"}},
      {{kStartMark, 9, 15}, {"Incomplete frame"}},
      {{77, 78}, {"Not understood"}},
      {{kAck, kNak, 77},
       {"Acknowledged", "Refused, together with the row before",
        "Not understood, together with the row before"}},
  };
  for (const auto& [bytes, meanings] : kCases) {
    Receive(bytes);
    std::vector<std::string> seen;
    for (std::size_t i = 0; i < traffic->Count(); ++i) seen.push_back(traffic->At(i)->meaning);
    EXPECT_EQ(seen, meanings);
    traffic->Clear();
    line.ClearSent();
  }
  ReceiveFields({15, 0, 187});
  EXPECT_EQ(traffic->At(0)->meaning, "Broadcast mode is on, unasked");
  EXPECT_EQ(traffic->At(1)->meaning, "Select mode");
  EXPECT_EQ(traffic->At(1)->answer, TrafficAnswer::kNone);
}

TEST_F(TrafficTest, HoldsAWholeSendAndNoMoreRowsThanItMay) {
  form.bSConfig.OperatorClick();
  const auto sent = static_cast<std::size_t>(wholeSend.Result().messages);
  std::size_t messages = 0, polls = 0;
  for (std::size_t i = 0; i < traffic->Count(); ++i) {
    const TrafficRow& row = *traffic->At(i);
    messages += row.sent ? 1 : 0;
    polls += row.poll ? 1 : 0;
    EXPECT_NE(row.answer, TrafficAnswer::kAwaited) << row.meaning;
  }
  EXPECT_EQ(messages, sent);
  EXPECT_EQ(polls, 6U) << "identification, and a query at each end, with their replies";
  const std::int64_t first = traffic->At(0)->number;
  for (std::size_t i = traffic->Count(); i < Traffic::kMostRows + 5; ++i) Receive({77});
  EXPECT_EQ(traffic->Count(), Traffic::kMostRows);
  EXPECT_EQ(traffic->At(0)->number, first + 5);

  traffic.reset();
  Receive({77});  // nobody listens any more
}

}  // namespace
}  // namespace marlinset
