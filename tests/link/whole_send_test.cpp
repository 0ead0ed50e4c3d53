// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/link/send_sequence.h"

namespace marlinset {
namespace {

using enum SendEnd;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

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

}  // namespace
}  // namespace marlinset
