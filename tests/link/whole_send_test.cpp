// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "tests/support/link_rig.h"
#include "tests/support/table.h"

namespace marlinset {
namespace {

using enum SendEnd;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

const char* const kSense = "15 0 52";

/// Columns of the table of messages: fields; what is yellow meanwhile; what the operator reads if the
/// acknowledgement is missing; when it is sent (always, for model Q, with the inserter on or off); its wait.
enum Column : std::size_t { kFields, kMarks, kFailure, kWhen, kWaitMs };

/// The whole send between the queries for the standard at its beginning and its end.
struct Sequence {
  explicit Sequence(bool modelQ = false, bool charOn = true) {
    for (const TableRow& row : TableOf("whole_send")) {
      if (row[kWhen] == (charOn ? "off" : "on") || (row[kWhen] == "model Q" && !modelQ)) continue;
      rows.push_back(row);
      fields.push_back(row[kFields]);
    }
  }
  Texts Framed() const {
    Texts all{"15 0 53", kSense};
    all.insert(all.end(), fields.begin(), fields.end());
    all.emplace_back(kSense);
    return all;
  }

  std::vector<TableRow> rows;
  Texts fields;
};

/// The controls that are yellow, except the traffic indicator.
std::string Marked(const LinkRig& rig) {
  std::string names;
  for (const Control* control : rig.form.Controls()) {
    if (control->BackColor() != kYellow || control == &rig.form.pComBut) continue;
    names += (names.empty() ? "" : " ") + control->FullName();
  }
  return names;
}

void ExpectIdle(const LinkRig& rig) {
  EXPECT_EQ(Marked(rig), "");
  EXPECT_EQ(rig.form.comVS.BackColor(), kWindowColor);
  EXPECT_EQ(rig.EnabledButtons(), 6);
  EXPECT_EQ(rig.form.InterTime.Enabled(), rig.form.mnuInter.Checked());
  EXPECT_FALSE(rig.wholeSend.Running() || rig.form.tClearStat.Enabled());
}

TEST(WholeSend, SendsEverythingInTheUnitsOrder) {
  const std::pair<int, bool> kCases[] = {
      {kModelHd7340, true}, {kModelHdSd7340, false}, {kModelHd7340Q, true}, {kModelHd7340Q, false}};
  for (const auto& [model, charOn] : kCases) {
    LinkRig rig(model);
    rig.form.mnuCharOn.SetChecked(charOn);
    rig.form.mnuCharOff.SetChecked(!charOn);
    Texts marks;
    Texts meanings;
    rig.commands.MessageSent.Connect([&](const SentMessage& message) {
      marks.push_back(Marked(rig));
      meanings.push_back(message.meaning);
      EXPECT_EQ(rig.EnabledButtons(), marks.size() == 1 ? 6 : 0) << "the identification is the button's own";
    });
    EXPECT_TRUE(rig.form.bSConfig.OperatorClick());

    const Sequence sequence(model == kModelHd7340Q, charOn);
    EXPECT_EQ(rig.Sent(), sequence.Framed());
    Texts expectedMarks{"", "comVS"};
    for (const TableRow& row : sequence.rows) expectedMarks.push_back(row[kMarks]);
    expectedMarks.emplace_back("");
    EXPECT_EQ(marks, expectedMarks);
    for (const char* meaning :
         {"Parameter 2/7 'Display brightness' = 300", "VITC lines: 14/34 15/35 16/36",
          "LTC, user bits: Film Data", "Text message 'TAKE 3 É'", "Slate duration: 300 frames",
          "VITC 3rd line, time bits: A source that no table has (sent as 0)", "Number of VITC lines: 2",
          "White flag line: 21",
          "Window 1 'Video Timecode': on, row 20, column 5, 13 wide, slate, field digit, double height",
          "Window 14 'Text' not highlighted: on, row 100, column 6, 17 wide, symbol"}) {
      EXPECT_THAT(meanings, Contains(meaning));
    }
    EXPECT_THAT(rig.dialogs.Texts(), IsEmpty());
    EXPECT_EQ(rig.Panel(3), "7340 Configuration Complete. ");
    EXPECT_EQ(rig.form.tWinMess.Text(), "TAKE 3 É");
    EXPECT_EQ(rig.wholeSend.Result().end, kComplete);
    EXPECT_EQ(rig.wholeSend.Result().messages, static_cast<int>(marks.size()));
    ExpectIdle(rig);
  }
}

TEST(WholeSend, SendsWhatThePanelsSayInstead) {
  LinkRig rig;
  rig.form.mnuInter.SetChecked(true);
  rig.form.InterTime.SetEnabled(true);
  for (CheckBox* box : {&rig.form.chVITC, &rig.form.chEnable}) box->SetValue(0);
  rig.form.chPrev.SetValue(1);
  rig.form.lName(1).SetBackColor(kYellow);                              // highlighted by the operator
  rig.vars.CharWindows.push_back({});                                   // without a row of controls,
  rig.vars.SystemParameters.push_back({4, 1, "Without a row too", 6});  // which is sent nevertheless
  std::optional<std::string> marked;
  rig.commands.MessageSent.Connect([&](const SentMessage& message) {
    if (message.meaning == "LTC, user bits: Film Data") rig.line.Unit().Faults().drop = 2;
    if (message.meaning.find(" not highlighted: ") != std::string::npos) marked = Marked(rig);
    EXPECT_EQ(rig.form.InterTime.Enabled(), message.meaning == "Identification?");
  });
  rig.form.bSConfig.OperatorClick();

  Sequence expected;
  expected.fields[11] = "1 5 47";
  expected.fields[12] = "1 5 57";
  expected.fields.erase(expected.fields.begin() + 13);  // no line of a white flag that is off
  expected.fields.insert(expected.fields.begin() + 2, "15 0 192 1 4 6 0 0 0");
  *(expected.fields.end() - 2) = "2 8 37 1";  // the preview
  expected.fields.emplace_back("2 8 37 1");   // and once more in interactive mode
  EXPECT_EQ(rig.Sent(), expected.Framed());
  EXPECT_EQ(marked, "") << "all names are white before the highlights are taken off";
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("VITC Enable error 47", "White Flag Enable error 57"));
  ExpectIdle(rig);
}

TEST(WholeSend, TellsAMissingAcknowledgementAndGoesOn) {
  const Sequence sequence(true);
  for (std::size_t lost = 0; lost < sequence.rows.size(); ++lost) {
    const TableRow& row = sequence.rows[lost];
    SCOPED_TRACE(std::to_string(lost) + ": " + row[kFields]);
    LinkRig rig(kModelHd7340Q);
    bool red = false;
    rig.form.pComBut.Changed.Connect([&] { red = red || rig.form.pComBut.BackColor() == kRed; });
    std::size_t sent = 0;
    rig.commands.MessageSent.Connect([&](const SentMessage& message) {
      EXPECT_EQ(message.verdict == Verdict::kAcknowledged, sent != lost + 2);
      if (++sent == lost + 2) rig.line.Unit().Faults().drop = 1;
    });
    rig.form.bSConfig.OperatorClick();

    // An inserter that did not go off is not switched on again.
    Sequence expected = sequence;
    const bool inserter = row[kWhen] == "on" && lost + 1 < sequence.rows.size();
    std::size_t index = 0;
    std::erase_if(expected.fields, [&](const std::string& fields) {
      return index++ > lost && inserter && fields.starts_with("2 8 34");
    });
    EXPECT_EQ(rig.Sent(), expected.Framed());
    EXPECT_EQ(rig.dialogs.Texts(), Texts(row[kFailure].empty() ? 0 : 1, row[kFailure]));
    EXPECT_EQ(rig.pump.Now(), row[kWaitMs].empty() ? 100 : std::stoi(row[kWaitMs]));
    EXPECT_EQ(rig.form.dPause.Interval(), 100);
    EXPECT_EQ(rig.form.mnuCharOn.Checked(), !inserter);
    EXPECT_EQ(red, inserter);
    EXPECT_EQ(rig.wholeSend.Result().Count(Verdict::kUnacknowledged), 1);
    EXPECT_EQ(rig.wholeSend.Result().planned, rig.wholeSend.Result().messages);
    ExpectIdle(rig);
  }
}

TEST(WholeSend, SaysAtAStopThatTheCharactersMayBeOff) {
  const Sequence sequence;
  const auto off = std::ranges::find_if(
      sequence.rows, [](const TableRow& row) { return row[kFields].starts_with("2 8 34"); });
  const auto before = off - sequence.rows.begin() + 2;  // with the questions to the unit
  LinkRig rig;
  std::int64_t sent = 0;
  rig.commands.MessageSent.Connect([&](const SentMessage& message) {
    if (++sent == before) rig.line.Unit().Faults().drop = 1;
    if (message.verdict == Verdict::kUnacknowledged) rig.form.bStop.OperatorClick();
  });
  rig.form.bSConfig.OperatorClick();
  EXPECT_EQ(rig.wholeSend.Result().end, SendEnd::kStopped);
  EXPECT_THAT(rig.dialogs.shown.back().remedy,
              testing::HasSubstr("choose Options > Char Inserter > Char On"));
}

TEST(WholeSend, TellsWhatTheUnitRefusedWhateverElseItSays) {
  enum class Answer { kNak, kNakAndStrayAck, kAckAndLateNak };
  for (const Answer answer : {Answer::kNak, Answer::kNakAndStrayAck, Answer::kAckAndLateNak}) {
    const bool late = answer == Answer::kAckAndLateNak;
    const bool refused = answer == Answer::kNak;
    LinkRig rig;
    std::vector<std::string> doubtful;
    const auto note = [&](const SentMessage& message) {
      if (message.verdict != Verdict::kAcknowledged) doubtful.push_back(message.meaning);
    };
    rig.commands.VerdictChanged.Connect([&](const SentMessage& message, Verdict) { note(message); });
    rig.commands.MessageSent.Connect([&](const SentMessage& message) {
      note(message);
      if (late && message.meaning == "Slate duration: 300 frames") rig.Receive({kNak});
      if (late || message.meaning != "Characters on again") return;
      rig.line.Unit().Faults().nak = 1;  // the slate duration is next
      if (!refused) rig.line.Inject({kAck}, rig.pump.Now() + 60);
    });
    rig.form.bSConfig.OperatorClick();
    EXPECT_EQ(rig.Sent(), Sequence().Framed());
    EXPECT_EQ(rig.pump.Now(), late ? 0 : refused ? 100 : 60) << "the waits are as they were";
    EXPECT_EQ(rig.dialogs.shown.size(), refused ? 1U : 0U);
    EXPECT_THAT(doubtful, ElementsAre("Slate duration: 300 frames"));
    const SendResult& result = rig.wholeSend.Result();
    EXPECT_EQ(result.Count(refused ? Verdict::kRefused : Verdict::kUncertain), 1);
    EXPECT_EQ(result.Doubtful(), 1);
    EXPECT_TRUE(result.wentOut == result.messages && result.planned == result.messages);
  }
}

const char* const kSilent = "Video Standard not detected. Verify communications.";
const char* const kMismatch = "Video Standard Mismatch, Switch to Manual Mode?";
const char* const kClosed = "Open Com Port before sending cmmands.";

TEST(WholeSend, BringsTheStandardsOfUnitAndConfigurationTogether) {
  for (const TableRow& row : TableOf("standards")) {
    SCOPED_TRACE(row[0] + " " + row[4]);
    const bool byCommand = row[1] == "command";
    const Texts sent = Split(row[5], ';');
    LinkRig rig;
    rig.line.Unit().SetManual(byCommand);
    SelectText(rig.form.comVS, row[0]);
    rig.dialogs.answers = {row[2] == "yes" ? BoxAnswer::kYes : BoxAnswer::kNo};
    rig.form.bSConfig.OperatorClick();
    EXPECT_EQ(rig.dialogs.Texts(), Split(row[4], ';'));
    EXPECT_EQ(rig.Panel(3) == "Changed to Manual Mode", row[3] == "failed" && !byCommand);
    EXPECT_EQ(NameOf(rig.wholeSend.Result().end), row[3]);
    EXPECT_EQ(rig.wholeSend.Result().end == kNoCode, row[3] == "failed");
    Texts expected = Sequence().Framed();
    expected.insert(expected.begin() + 2, sent.begin(), sent.end());
    if (row[3] != "complete") expected.resize(2 + sent.size());
    EXPECT_EQ(rig.Sent(), expected);
    ExpectIdle(rig);
  }
}

/// Another standard than the unit's makes the tool ask; the device goes away while the question is open.
template <BoxAnswer kAnswer>
void VanishAtTheQuestion(LinkRig& rig) {
  rig.form.mnuInter.SetChecked(true);  // so that the slate goes out once more
  rig.form.mnuOff.SetChecked(false);
  SelectText(rig.form.comVS, "525i/60");
  rig.dialogs.onShow = [&rig](const MessageBox& box) {
    if (box.text == kMismatch) rig.line.Vanish();
    return kAnswer;
  };
}

TEST(WholeSend, CountsNoMessageThatThePortDiscarded) {
  LinkRig rig;
  rig.commands.MessageSent.Connect([&](const SentMessage& message) {
    if (message.number == 20) rig.line.Jam();
    if (message.number == 22) rig.line.Vanish();
  });
  rig.form.bSConfig.OperatorClick();
  EXPECT_EQ(rig.wholeSend.Result().messages, 22);
  EXPECT_EQ(rig.Sent().size(), 20U);
  EXPECT_THAT(rig.dialogs.shown.back().remedy, testing::HasSubstr(" is gone. 20 of "));
}

/// Ctrl+. in the question, which then closes.
void StopAtTheQuestion(LinkRig& rig) {
  SelectText(rig.form.comVS, "525i/60");
  rig.dialogs.onShow = [&rig](const MessageBox& box) {
    if (box.text == kMismatch) rig.form.bStop.OperatorClick();
    return BoxAnswer::kNo;
  };
}

/// Something that happens after `after` messages, of which the identification is the first.
struct Incident {
  std::size_t after;
  void (*happen)(LinkRig& rig);
  std::size_t goOut;  ///< messages that reach the line
  SendEnd end;
  Texts boxes;
};

void Stop(LinkRig& rig) {
  rig.form.bStop.OperatorClick();
}
void StopByScript(LinkRig& rig) {
  rig.wholeSend.stopRequested = [] { return true; };
}

/// Nobody is asked about a setup that will not be sent.
void StopAtOtherStandards(LinkRig& rig) {
  rig.vars.UnitStandardText = "PAL";
  rig.form.bStop.OperatorClick();
}

TEST(WholeSend, OutlivesWhatHappensInTheMiddle) {
  const Texts framed = Sequence().Framed();
  Texts refused(framed.size() - 6, kClosed);
  refused.emplace_back(kSilent);
  const std::size_t all = framed.size();
  const Texts fields = Sequence().fields;
  const std::size_t prologue = 2;
  const auto offForSize =
      static_cast<std::size_t>(std::ranges::find(fields, "2 8 34 0") - fields.begin()) + prologue + 1;
  const std::size_t onAgain = offForSize + 2;
  const auto stoppedAfter = [all](std::size_t messages) {
    return "The send was stopped after " + std::to_string(messages) + " of " + std::to_string(all) +
           " messages.";
  };
  const Incident kIncidents[] = {
      {0, [](LinkRig& rig) { rig.line.SetPorts({}); }, 0, kPortClosed, {"There is no such device."}},
      {0, [](LinkRig& rig) { rig.line.Unit().SetStandard(0); }, 2, kNotDetected, {kSilent}},
      {1, StopByScript, 1, kStopped, {}},
      {6, [](LinkRig& rig) { rig.form.bSConfig.Press(); }, all, kComplete, {}},
      {6, [](LinkRig& rig) { rig.form.lDesc.Unload(2); }, all, kComplete, {}},
      {6, [](LinkRig& rig) { rig.form.bClose.Press(); }, 6, kNotConfirmed, refused},
      {6, [](LinkRig& rig) { rig.pump.End(); }, 6, kStopped, {}},
      {6, StopByScript, 6, kStopped, {}},
      {1, Stop, 1, kStopped, {stoppedAfter(1)}},
      {2, StopAtOtherStandards, 2, kStopped, {stoppedAfter(2)}},
      {6, Stop, 6, kStopped, {stoppedAfter(6)}},
      {offForSize, Stop, onAgain, kStopped, {stoppedAfter(onAgain)}},
      {offForSize + 1, Stop, onAgain, kStopped, {stoppedAfter(onAgain)}},
      {offForSize, StopByScript, onAgain, kStopped, {}},
      {offForSize, [](LinkRig& rig) { rig.line.Vanish(); }, offForSize, kPortClosed, {kClosed}},
      {all, Stop, all, kComplete, {}},
      {6, [](LinkRig& rig) { rig.vars.CodeSources[3].GenNumber = 256; }, 12, kFailed, {"6  Overflow"}},
      {1, [](LinkRig& rig) { rig.line.Vanish(); }, 1, kPortClosed, {kClosed}},
      {2, [](LinkRig& rig) { rig.line.Vanish(); }, 2, kPortClosed, {kClosed}},
      {20, [](LinkRig& rig) { rig.line.Vanish(); }, 20, kPortClosed, {kClosed}},
      {0, StopAtTheQuestion, 2, kStopped, {kMismatch, stoppedAfter(2)}},
      {0, VanishAtTheQuestion<BoxAnswer::kYes>, 2, kPortClosed, {kMismatch, kClosed}},
      {0, VanishAtTheQuestion<BoxAnswer::kNo>, 2, kPortClosed, {kMismatch, kClosed}},
  };
  for (const Incident& c : kIncidents) {
    SCOPED_TRACE(&c - kIncidents);
    LinkRig rig;
    std::size_t sent = 0;
    rig.commands.MessageSent.Connect([&](const SentMessage&) {
      if (++sent == c.after) c.happen(rig);
    });
    if (c.after == 0) c.happen(rig);
    rig.form.bSConfig.OperatorClick();
    Texts expected = framed;
    expected.resize(c.goOut);
    EXPECT_EQ(rig.Sent(), expected);
    EXPECT_EQ(rig.dialogs.Texts(), c.boxes);
    EXPECT_EQ(rig.wholeSend.Result().end, c.end);
    EXPECT_EQ(rig.wholeSend.Result().Doubtful() > 1, c.end == kNotConfirmed) << "refused: no answer";
    ExpectIdle(rig);
    if (!c.boxes.empty() && c.boxes.back() == kClosed) {
      EXPECT_THAT(rig.dialogs.shown.back().remedy,
                  testing::StartsWith("The device behind port 1 (unit1) is gone. " + std::to_string(c.goOut) +
                                      " of " + std::to_string(c.after == 0 ? all + 1 : all) +
                                      " messages went out.\n"));
      EXPECT_TRUE(rig.form.pComBut.BackColor() == kRed && rig.form.mnuOff.Checked());
      rig.line.Return();
    } else if (c.end != kStopped || rig.pump.Ending()) {
      continue;
    }
    rig.wholeSend.stopRequested = nullptr;
    rig.dialogs.onShow = nullptr;
    SelectText(rig.form.comVS, "1080i/60");
    sent = all;
    rig.form.bSConfig.OperatorClick();
    EXPECT_EQ(rig.wholeSend.Result().end, kComplete) << "the next one";
  }
}

TEST(WholeSend, SaysWhatTheUnitHoldsAfterAStop) {
  LinkRig rig;
  std::string progress;
  int stopAfter = 6;
  rig.commands.MessageSent.Connect([&](const SentMessage&) {
    if (rig.wholeSend.Result().messages == stopAfter) rig.form.bStop.OperatorClick();
  });
  rig.wholeSend.Progressed.Connect([&] {
    const SendResult& result = rig.wholeSend.Result();
    if (result.messages == 5)
      progress = std::to_string(result.messages) + " of " + std::to_string(result.planned);
    EXPECT_EQ(rig.form.bStop.Enabled(), rig.wholeSend.Running());
  });
  rig.form.bSConfig.OperatorClick();
  const int all = rig.wholeSend.Result().planned;
  EXPECT_EQ(progress, "5 of " + std::to_string(all));
  const MessageBox box = rig.dialogs.shown.back();
  EXPECT_THAT(box.remedy, testing::StartsWith("The unit holds 4 of "));
  EXPECT_THAT(box.remedy, testing::HasSubstr("\nWindows: 0 of "));
  EXPECT_THAT(box.remedy, testing::EndsWith("Press Send Setup to send all of it."));

  stopAfter = 0;
  rig.form.bSConfig.OperatorClick();
  rig.form.UDDur.SetValue(rig.form.UDDur.Value() + 1);
  rig.form.chVITC.SetValue(1 - rig.form.chVITC.Value());
  stopAfter = 3;
  rig.form.bSChanges.OperatorClick();
  const std::vector<UnheldMessage> rest = rig.wholeSend.Changes();
  ASSERT_EQ(rest.size(), 1U);
  EXPECT_EQ(rest.front().message.fields.at(2), 36) << "the slate's duration comes later";
  EXPECT_THAT(rig.dialogs.shown.back().remedy, testing::EndsWith("Press Send Changes to send the rest."));
  EXPECT_TRUE(rig.form.bSChanges.Enabled());

  stopAfter = all - 1;
  rig.form.bSConfig.OperatorClick();
  EXPECT_EQ(rig.wholeSend.Result().end, kStopped);
  EXPECT_THAT(rig.dialogs.shown.back().remedy, testing::EndsWith("\nOnly the closing check is missing."));
  stopAfter = 1;
  rig.form.bSConfig.OperatorClick();
  EXPECT_THAT(rig.dialogs.shown.back().remedy, testing::HasSubstr("\nIts video standard may be another"));
}

}  // namespace
}  // namespace marlinset
