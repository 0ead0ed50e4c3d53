// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using enum SendEnd;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

const char* const kSense = "15 0 52";

/// When a message of the sequence goes out.
enum class When { kAlways, kModelQ, kCharOn, kCharOff };

/// The whole send of the sample configuration, message by message: its fields, what is yellow meanwhile, and
/// what the operator reads when its acknowledgement is missing (nothing for the highlights).
struct Row {
  const char* fields;
  const char* marks;
  const char* failure;
  When when = When::kAlways;
  int waitMs = 100;
};

const Row kSequence[] = {
    {"15 0 192 7 2 44 1 0 0", "lDesc(1)", "Problem with parameter."},
    {"15 0 192 2 3 255 255 255 255", "lDesc(1) lDesc(2)", "Problem with parameter."},
    {"1 5 138 2", "oVITC(0) oVITC(1) oVITC(2)", "Problem setting VITC."},
    {"1 5 160 32 1", "comTB(0)", "Input assignment TC error"},
    {"1 5 160 33 3", "ComUB(0)", "Input assignment UB error"},
    {"1 5 160 34 0", "", "Input assignment AT error"},
    {"1 5 160 35 0", "", "Input assignment AU error"},
    {"1 5 160 37 0", "", "Input assignment LI error"},
    {"1 5 160 36 0", "", "Input assignment LK error"},
    {"1 5 160 48 12", "comTB(1)", "Input assignment LTB error"},
    {"1 5 160 49 9", "ComUB(1)", "Input assignment LUB error"},
    {"1 5 46", "chVITC", "VITC Enable error 46"},
    {"1 5 56", "chEnable", "White Flag Enable error 56"},
    {"1 5 169 21 21", "tLineNumber(0)", "White FlagLine Set error 21"},
    {"1 5 160 50 9", "comTB(2)", "Input assignment VTB error"},
    {"1 5 160 51 3", "ComUB(2)", "Input assignment VUB error"},
    {"1 5 160 52 12", "comTB(3)", "Input assignment V2 error"},
    {"1 5 160 53 0", "comTB(4)", "Input assignment V3TB error"},
    {"1 5 160 54 1", "ComUB(4)", "Input assignment V3UB error"},
    {"1 5 163 14 34 15 35 16 36",
     "tLineNumber(1) tLineNumber(2) tLineNumber(3) tLineNumber(5) tLineNumber(6) tLineNumber(7) "
     "upVitc1(1) upVitc1(2) upVitc1(3) upVitc1(5) upVitc1(6) upVitc1(7)",
     "Input assignment VUB error"},
    {"2 8 35 3", "ComWin(2)", "Char Style Assignment error", When::kAlways, 10000},
    {"2 8 34 0", "", "Char On error", When::kCharOn},
    {"2 8 32 2", "ComWin(3)", "Char Size Assignment error", When::kAlways, 10000},
    {"2 8 34 1", "", "Char On error", When::kCharOn},
    {"2 8 36 1 44", "tLineNumber(4)", "Slate Duration Assignment error"},
    {"2 8 37 4", "ComWin(1)", "Slate Mode Assignment error"},
    {"2 8 46 7", "ComWin(4)", "SDI Program Out Assignment error", When::kModelQ},
    {"2 8 43 5", "ComWin(0)", "Down Converter Assignment error"},
    {"2 8 45 6 9 1", "ComWin(0)", "HD Downconverter Control Assignment error", When::kModelQ},
    {"2 8 33 1 114 20 5 13", "", ""},
    {"2 8 33 14 68 100 6 17", "", ""},
    {"2 8 33 1 114 20 5 13", "lName(0)", "Window Assignment error"},
    {"2 8 33 3 0 18 0 20", "lName(1)", "Window Assignment error"},
    {"2 8 40 14 84 65 75 69 32 51 32 201", "lName(2)", "Text Assignment error"},
    {"2 8 33 14 68 100 6 17", "lName(2)", "Window Assignment error"},
    {"2 8 37 4", "", "Slate Mode Assignment error"},
    {"2 8 34 0", "", "Char Off error", When::kCharOff},
    {"2 8 34 1", "", "Char On error", When::kCharOn},
};

/// The fields of the whole send from the query for the standard at its beginning to that at its end.
struct Sequence {
  explicit Sequence(bool modelQ = false, bool charOn = true) {
    for (const Row& row : kSequence) {
      const bool goes = row.when == When::kAlways || (row.when == When::kModelQ && modelQ) ||
                        row.when == (charOn ? When::kCharOn : When::kCharOff);
      if (!goes) continue;
      rows.push_back(row);
      fields.emplace_back(row.fields);
    }
  }
  Texts Framed() const {
    Texts all{"15 0 53", kSense};
    all.insert(all.end(), fields.begin(), fields.end());
    all.emplace_back(kSense);
    return all;
  }

  std::vector<Row> rows;
  Texts fields;
};

/// Names of the controls that are yellow, without the traffic indicator.
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
    for (const Row& row : sequence.rows) expectedMarks.emplace_back(row.marks);
    expectedMarks.emplace_back("");
    EXPECT_EQ(marks, expectedMarks);
    for (const char* meaning :
         {"Parameter 2/7 'Display brightness' = 300", "VITC lines: 14/34 15/35 16/36",
          "LTC, user bits: Film Data", "Window 1 'Video Timecode'", "Text message 'TAKE 3 É'",
          "Slate duration: 300 frames", "Number of VITC lines: 2", "White flag line: 21"}) {
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
    if (message.meaning.ends_with("not highlighted")) marked = Marked(rig);
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
    const Row& row = sequence.rows[lost];
    SCOPED_TRACE(std::to_string(lost) + ": " + row.fields);
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
    const bool inserter = row.when == When::kCharOn && lost + 1 < sequence.rows.size();
    std::size_t index = 0;
    std::erase_if(expected.fields, [&](const std::string& fields) {
      return index++ > lost && inserter && fields.starts_with("2 8 34");
    });
    EXPECT_EQ(rig.Sent(), expected.Framed());
    EXPECT_EQ(rig.dialogs.Texts(), Texts(*row.failure == 0 ? 0 : 1, row.failure));
    EXPECT_EQ(rig.pump.Now(), row.waitMs);
    EXPECT_EQ(rig.form.dPause.Interval(), 100);
    EXPECT_EQ(rig.form.mnuCharOn.Checked(), !inserter);
    EXPECT_EQ(red, inserter);
    EXPECT_EQ(rig.wholeSend.Result().Count(Verdict::kUnacknowledged), 1);
    EXPECT_EQ(rig.wholeSend.Result().planned, rig.wholeSend.Result().messages);
    ExpectIdle(rig);
  }
}

TEST(WholeSend, TellsWhatTheUnitRefusedInSpiteOfAStrayAck) {
  for (const bool stray : {false, true}) {
    LinkRig rig;
    rig.commands.MessageSent.Connect([&](const SentMessage& message) {
      if (message.meaning != "Characters on again") return;
      rig.line.Unit().Faults().nak = 1;  // the slate duration is next
      if (stray) rig.line.Inject({kAck}, rig.pump.Now() + 60);
    });
    std::vector<std::string> doubtful;
    rig.commands.MessageSent.Connect([&](const SentMessage& message) {
      if (message.verdict != Verdict::kAcknowledged) doubtful.push_back(message.meaning);
    });
    rig.form.bSConfig.OperatorClick();
    EXPECT_EQ(rig.Sent(), Sequence().Framed());
    EXPECT_EQ(rig.pump.Now(), stray ? 60 : 100) << "the waits are as they were";
    EXPECT_EQ(rig.dialogs.shown.size(), stray ? 0U : 1U);
    EXPECT_THAT(doubtful, ElementsAre("Slate duration: 300 frames"));
    EXPECT_EQ(rig.wholeSend.Result().Count(stray ? Verdict::kUncertain : Verdict::kRefused), 1);
    EXPECT_EQ(rig.wholeSend.Result().Doubtful(), 1);
    EXPECT_EQ(rig.wholeSend.Result().planned, rig.wholeSend.Result().messages);
  }
}

TEST(WholeSend, NamesWhatANakInOneReadWithTheClosingReplyBelongsTo) {
  LinkRig rig;
  std::vector<std::string> told;
  const auto tell = [&](const SentMessage& message) {
    if (message.verdict != Verdict::kAcknowledged) told.push_back(message.meaning);
  };
  rig.commands.MessageSent.Connect([&](const SentMessage& message) {
    tell(message);
    if (message.meaning != "Characters on") return;
    rig.line.SetGate(false);
    rig.line.Unit().Faults().lateFrames = std::chrono::milliseconds(500);
    rig.pump.At(rig.pump.Now() + 29, [&rig] {
      Bytes bytes{kNak};
      const Bytes frame = EncodeFrame(Bytes{15, 0, 52, 4});
      bytes.insert(bytes.end(), frame.begin(), frame.end());
      rig.line.Inject(bytes, rig.pump.Now());
    });
  });
  rig.commands.VerdictChanged.Connect([&](const SentMessage& message, Verdict) { tell(message); });
  rig.form.bSConfig.OperatorClick();
  const SendResult& result = rig.wholeSend.Result();
  EXPECT_EQ(result.end, kNotConfirmed);
  EXPECT_THAT(told, ElementsAre("Characters on", "Video status?"));
  EXPECT_EQ(result.Doubtful(), 2);
  EXPECT_TRUE(result.wentOut == result.messages && result.planned == result.messages);
}

const char* const kSilent = "Video Standard not detected. Verify communications.";
const char* const kChange = "Video Standard will be changed!";
const char* const kMismatch = "Video Standard Mismatch, Switch to Manual Mode?";
const char* const kAdvice = "Change Input Source Video, or select the appropriate Video Standard.";
const char* const kManual = "15 0 192 0 0 1 0 0 0";

/// A unit that sees 1080i/60 and a configuration for another standard: what the operator is asked and what
/// goes out before the sequence.
struct StandardCase {
  const char* configuration;
  bool byCommand;  ///< the unit takes its standard by command, not from its input
  bool agreed;
  SendEnd end;
  Texts boxes;
  Texts sent;
};

TEST(WholeSend, BringsTheStandardsOfUnitAndConfigurationTogether) {
  const StandardCase kCases[] = {
      {"525i/60", true, false, kRefused, {kChange}, {}},
      {"525i/60", true, true, kComplete, {kChange}, {"15 0 36 6", kSense}},
      {"720p/60", true, true, kNoCode, {kChange}, {}},
      {"2160p", true, true, kNoCode, {kChange}, {}},
      {"", true, true, kNoCode, {kChange}, {}},
      {"525i/60", false, false, kRefused, {kMismatch, kAdvice}, {}},
      {"525i/60", false, true, kComplete, {kMismatch}, {kManual, "15 0 36 6", kSense}},
      {"720p/60", false, true, kComplete, {kMismatch}, {kManual, "15 0 36 8", kSense}},
      {"2160p", false, true, kNoCode, {kMismatch}, {kManual}},
  };
  for (const StandardCase& c : kCases) {
    SCOPED_TRACE(std::string(c.configuration) + " " + c.boxes.back());
    LinkRig rig;
    rig.line.Unit().SetManual(c.byCommand);
    SelectText(rig.form.comVS, c.configuration);
    rig.dialogs.answers = {c.agreed ? BoxAnswer::kYes : BoxAnswer::kNo};
    rig.form.bSConfig.OperatorClick();
    EXPECT_EQ(rig.dialogs.Texts(), c.boxes);
    EXPECT_EQ(rig.Panel(3) == "Changed to Manual Mode", c.end == kNoCode && !c.byCommand);
    EXPECT_EQ(rig.wholeSend.Result().end, c.end);
    Texts expected = Sequence().Framed();
    expected.insert(expected.begin() + 2, c.sent.begin(), c.sent.end());
    if (c.end != kComplete) expected.resize(2 + c.sent.size());
    EXPECT_EQ(rig.Sent(), expected);
    ExpectIdle(rig);
  }
}

TEST(WholeSend, EndsWithOneBoxWhenTheDeviceGoesAway) {
  const char* const kClosed = "Open Com Port before sending cmmands.";
  struct Loss {
    const char* standard;  ///< of the configuration; another than the unit's makes the tool ask
    std::size_t after;     ///< messages; 0: while the question stands
    bool agreed;
    Texts boxes;
  };
  const Loss kLosses[] = {{"1080i/60", 1, true, {kClosed}},
                          {"1080i/60", 2, true, {kClosed}},
                          {"1080i/60", 20, true, {kClosed}},
                          {"525i/60", 0, true, {kMismatch, kClosed}},
                          {"525i/60", 0, false, {kMismatch, kClosed}},
                          {"525i/60", 3, true, {kMismatch, kClosed}}};
  for (const Loss& c : kLosses) {
    SCOPED_TRACE(&c - kLosses);
    LinkRig rig;
    rig.form.mnuInter.SetChecked(true);
    rig.form.mnuOff.SetChecked(false);
    SelectText(rig.form.comVS, c.standard);
    rig.commands.MessageSent.Connect([&](const SentMessage& message) {
      if (message.number == static_cast<int>(c.after)) rig.line.Vanish();
    });
    rig.dialogs.onShow = [&](const MessageBox& box) {
      if (box.text == kMismatch && c.after == 0) rig.line.Vanish();
      return c.agreed ? BoxAnswer::kYes : BoxAnswer::kNo;
    };
    rig.form.bSConfig.OperatorClick();
    rig.pump.Pass(1000);
    EXPECT_EQ(rig.dialogs.Texts(), c.boxes);
    const std::size_t sent = c.after == 0 ? 2 : c.after;
    EXPECT_EQ(rig.Sent().size(), sent) << "nothing further is tried";
    const std::size_t all = Sequence().Framed().size() + 1 + (c.after == 3 ? 1 : 0);  // and the slate's, live
    EXPECT_THAT(rig.dialogs.shown.back().remedy,
                testing::StartsWith("The device behind port 1 (unit1) is gone. " + std::to_string(sent) +
                                    " of " + std::to_string(all) + " messages went out.\n"));
    EXPECT_EQ(rig.wholeSend.Result().end, kPortClosed);
    EXPECT_TRUE(rig.form.pComBut.BackColor() == kRed && rig.form.mnuOff.Checked());
    ExpectIdle(rig);
    rig.line.Return();
    SelectText(rig.form.comVS, "1080i/60");
    rig.form.bSConfig.OperatorClick();
    EXPECT_EQ(rig.wholeSend.Result().end, kComplete);
  }
}

/// Something that happens when `after` messages have gone out, the identification being the first.
struct Incident {
  std::size_t after;
  void (*happen)(LinkRig& rig);
  std::size_t goOut;  ///< messages that reach the line
  SendEnd end;
  Texts boxes;
};

TEST(WholeSend, OutlivesWhatHappensInTheMiddle) {
  const Texts framed = Sequence().Framed();
  Texts refused(framed.size() - 6, "Open Com Port before sending cmmands.");
  refused.emplace_back(kSilent);
  const std::size_t all = framed.size();
  const Incident kIncidents[] = {
      {0, [](LinkRig& rig) { rig.line.SetPorts({}); }, 0, kPortClosed, {"There is no such device."}},
      {0, [](LinkRig& rig) { rig.line.Unit().SetStandard(0); }, 2, kNotDetected, {kSilent}},
      {1, [](LinkRig& rig) { rig.wholeSend.stopRequested = [] { return true; }; }, 1, kStopped, {}},
      {6, [](LinkRig& rig) { rig.form.bSConfig.Press(); }, all, kComplete, {}},
      {6, [](LinkRig& rig) { rig.form.lDesc.Unload(2); }, all, kComplete, {}},
      {6, [](LinkRig& rig) { rig.form.bClose.Press(); }, 6, kNotConfirmed, refused},
      {6, [](LinkRig& rig) { rig.pump.End(); }, 6, kStopped, {}},
      {6, [](LinkRig& rig) { rig.wholeSend.stopRequested = [] { return true; }; }, 6, kStopped, {}},
      {6, [](LinkRig& rig) { rig.vars.CodeSources[3].GenNumber = 256; }, 12, kFailed, {"6  Overflow"}},
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
    if (!rig.wholeSend.stopRequested) continue;
    rig.wholeSend.stopRequested = nullptr;
    sent = all;
    rig.form.bSConfig.OperatorClick();
    EXPECT_EQ(rig.wholeSend.Result().end, kComplete) << "the next one";
  }
}

}  // namespace
}  // namespace marlinset
