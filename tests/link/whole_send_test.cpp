// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

std::vector<Row> SequenceOf(bool modelQ, bool charOn) {
  std::vector<Row> rows;
  for (const Row& row : kSequence) {
    const bool goes = row.when == When::kAlways || (row.when == When::kModelQ && modelQ) ||
                      row.when == (charOn ? When::kCharOn : When::kCharOff);
    if (goes) rows.push_back(row);
  }
  return rows;
}

std::vector<std::string> FieldsOf(const std::vector<Row>& rows) {
  std::vector<std::string> fields;
  fields.reserve(rows.size());
  for (const Row& row : rows) fields.emplace_back(row.fields);
  return fields;
}

/// Names of the controls that are yellow, without the traffic indicator.
std::string Marked(const LinkRig& rig) {
  std::string names;
  for (const Control* control : rig.form.Controls()) {
    if (control->BackColor() != kYellow || control == &rig.form.pComBut) continue;
    names += (names.empty() ? "" : " ") + control->FullName();
  }
  return names;
}

std::vector<std::string> Framed(std::vector<std::string> sequence) {
  sequence.insert(sequence.begin(), {"15 0 53", "15 0 52"});
  sequence.emplace_back("15 0 52");
  return sequence;
}

void ExpectIdle(const LinkRig& rig) {
  EXPECT_EQ(Marked(rig), "");
  EXPECT_EQ(rig.form.comVS.BackColor(), kWindowColor);
  for (const Button* button : {&rig.form.bOpen, &rig.form.bSend, &rig.form.bClose, &rig.form.bGetID,
                               &rig.form.bBroad, &rig.form.bSConfig}) {
    EXPECT_TRUE(button->Enabled()) << button->Name();
  }
  EXPECT_EQ(rig.form.InterTime.Enabled(), rig.form.mnuInter.Checked());
  EXPECT_FALSE(rig.wholeSend.Running());
}

struct ModelCase {
  int model;
  bool charOn;
};

TEST(WholeSend, SendsEverythingInTheUnitsOrder) {
  for (const ModelCase& c : {ModelCase{kModelHd7340, true}, ModelCase{kModelHdSd7340, false},
                             ModelCase{kModelHd7340Q, true}, ModelCase{kModelHd7340Q, false}}) {
    LinkRig rig(c.model);
    rig.form.mnuCharOn.SetChecked(c.charOn);
    rig.form.mnuCharOff.SetChecked(!c.charOn);
    std::vector<std::string> marks;
    rig.commands.MessageSent.Connect([&](const SentMessage&) { marks.push_back(Marked(rig)); });
    EXPECT_TRUE(rig.form.bSConfig.OperatorClick());

    const std::vector<Row> rows = SequenceOf(c.model == kModelHd7340Q, c.charOn);
    EXPECT_EQ(rig.Sent(), Framed(FieldsOf(rows)));
    std::vector<std::string> expectedMarks{"", "comVS"};
    for (const Row& row : rows) expectedMarks.emplace_back(row.marks);
    expectedMarks.emplace_back("");
    EXPECT_EQ(marks, expectedMarks);

    EXPECT_THAT(rig.dialogs.Texts(), IsEmpty());
    EXPECT_EQ(rig.Panel(3), "7340 Configuration Complete. ");
    EXPECT_EQ(rig.form.tWinMess.Text(), "TAKE 3 É");
    EXPECT_EQ(rig.form.mnuCharOn.Checked(), c.charOn);
    EXPECT_EQ(rig.wholeSend.Result().end, SendEnd::kComplete);
    EXPECT_EQ(rig.wholeSend.Result().messages, static_cast<int>(rows.size()) + 3);
    EXPECT_EQ(rig.wholeSend.Result().unacknowledged, 0);
    for (const char* name : {"lDesc", "lName", "comTB", "ComWin"}) {
      EXPECT_EQ(rig.form.Find(name, 0)->BackColor(), kWhite) << name;
    }
    ExpectIdle(rig);
  }
}

TEST(WholeSend, SendsWhatThePanelsSayInstead) {
  LinkRig rig;
  rig.form.mnuInter.SetChecked(true);
  rig.form.mnuOff.SetChecked(false);
  for (CheckBox* box : {&rig.form.chVITC, &rig.form.chEnable}) box->SetValue(0);
  rig.form.chPrev.SetValue(1);
  rig.form.bSConfig.OperatorClick();

  std::vector<std::string> expected = FieldsOf(SequenceOf(false, true));
  expected[11] = "1 5 47";
  expected[12] = "1 5 57";
  expected.erase(expected.begin() + 13);  // no line of a white flag that is off
  *(expected.end() - 2) = "2 8 37 1";     // the preview
  expected.emplace_back("2 8 37 1");      // and once more in interactive mode
  EXPECT_EQ(rig.Sent(), Framed(expected));
  EXPECT_TRUE(rig.form.InterTime.Enabled());
  ExpectIdle(rig);
}

TEST(WholeSend, TellsAMissingAcknowledgementAndGoesOn) {
  const std::vector<Row> rows = SequenceOf(true, true);
  for (std::size_t lost = 0; lost < rows.size(); ++lost) {
    SCOPED_TRACE(std::to_string(lost) + ": " + rows[lost].fields);
    LinkRig rig(kModelHd7340Q);
    std::size_t sent = 0;
    rig.commands.MessageSent.Connect([&](const SentMessage& message) {
      EXPECT_EQ(message.acknowledged, sent != lost + 2);
      if (++sent == lost + 2) rig.line.Unit().Faults().drop = 1;
    });
    rig.form.bSConfig.OperatorClick();

    // An inserter that did not go off is not switched on again.
    std::vector<std::string> expected = FieldsOf(rows);
    const bool inserter = expected[lost].starts_with("2 8 34") && lost + 1 < rows.size();
    std::size_t index = 0;
    std::erase_if(expected, [&](const std::string& fields) {
      return index++ > lost && inserter && fields.starts_with("2 8 34");
    });
    EXPECT_EQ(rig.Sent(), Framed(expected));
    const std::string failure = rows[lost].failure;
    EXPECT_EQ(rig.dialogs.Texts(),
              failure.empty() ? std::vector<std::string>{} : std::vector<std::string>{failure});
    EXPECT_EQ(rig.pump.Now(), rows[lost].waitMs);
    EXPECT_EQ(rig.form.dPause.Interval(), 100);
    EXPECT_EQ(rig.form.mnuCharOn.Checked(), !inserter);
    EXPECT_FALSE(rig.form.mnuCharOff.Checked());
    EXPECT_EQ(rig.wholeSend.Result().end, SendEnd::kComplete);
    EXPECT_EQ(rig.wholeSend.Result().unacknowledged, 1);
    ExpectIdle(rig);
  }
}

TEST(WholeSend, KeepsTheOtherSendersAwayWhileItRuns) {
  LinkRig rig;
  rig.form.mnuInter.SetChecked(true);
  rig.form.InterTime.SetEnabled(true);
  rig.form.lName(1).SetBackColor(kYellow);  // highlighted by the operator
  std::size_t sent = 0;
  bool windows = false;
  rig.commands.MessageSent.Connect([&](const SentMessage& message) {
    if (++sent == 1) return;  // the identification is the button's own
    EXPECT_FALSE(rig.form.InterTime.Enabled());
    for (const Button* button : {&rig.form.bOpen, &rig.form.bSend, &rig.form.bClose, &rig.form.bGetID,
                                 &rig.form.bBroad, &rig.form.bSConfig}) {
      EXPECT_FALSE(button->Enabled()) << button->Name();
    }
    if (windows || std::string_view(message.command) != "cmdWindow") return;
    windows = true;
    EXPECT_EQ(Marked(rig), "") << "all names are white before the highlights are taken off";
  });
  rig.form.bSConfig.OperatorClick();
  EXPECT_TRUE(windows);
  ExpectIdle(rig);
}

TEST(WholeSend, GivesTheAcknowledgementsTheTimeThatTheyHadBefore) {
  for (const int interval : {100, 250, 10000}) {
    LinkRig rig;
    rig.Open();
    rig.form.dPause.SetInterval(interval);
    rig.wholeSend.SendConfiguration();
    EXPECT_EQ(rig.form.dPause.Interval(), interval);
    EXPECT_EQ(rig.wholeSend.Result().end, SendEnd::kComplete);
  }
}

TEST(WholeSend, TakesAnEditThatComesBeforeTheControlsTurn) {
  LinkRig rig;
  rig.commands.MessageSent.Connect([&](const SentMessage& message) {
    if (message.meaning.starts_with("VITC lines: ")) {
      rig.form.tWinMess.SetText("roll 4");
      rig.form.chVITC.SetValue(0);
      SelectText(rig.form.comTB(0), "Film Data");
      SelectText(rig.form.ComWin(0), "Crop");
    }
  });
  rig.form.bSConfig.OperatorClick();
  std::vector<std::string> expected = FieldsOf(SequenceOf(false, true));
  std::replace(expected.begin(), expected.end(), std::string("2 8 43 5"), std::string("2 8 43 6"));
  std::replace(expected.begin(), expected.end(), std::string("2 8 40 14 84 65 75 69 32 51 32 201"),
               std::string("2 8 40 14 82 79 76 76 32 52"));
  EXPECT_EQ(rig.Sent(), Framed(expected)) << "the others are not sent again";
}

TEST(WholeSend, DescribesEachMessage) {
  LinkRig rig(kModelHd7340Q);
  std::vector<std::string> meanings;
  rig.commands.MessageSent.Connect([&](const SentMessage& message) { meanings.push_back(message.meaning); });
  rig.form.bSConfig.OperatorClick();
  for (const char* meaning : {"Parameter 2/7 'Display brightness' = 300", "VITC lines: 14/34 15/35 16/36",
                              "LTC, user bits: Film Data", "Window 1 'Video Timecode'",
                              "Text message 'TAKE 3 É'", "Slate duration: 300 frames"}) {
    EXPECT_THAT(meanings, testing::Contains(meaning));
  }
}

/// Something that happens when the first of the routing messages has gone out.
struct Incident {
  const char* what;
  void (*happen)(LinkRig& rig);
  std::size_t goOut;  ///< messages of the sequence that still reach the line
  std::vector<std::string> boxes;
  SendEnd end;
};

std::vector<std::string> WithRepeats(std::vector<std::string> first, std::size_t count,
                                     const std::string& repeated, const char* last) {
  first.insert(first.end(), count, repeated);
  first.emplace_back(last);
  return first;
}

TEST(WholeSend, OutlivesWhatHappensInTheMiddle) {
  constexpr std::size_t kBefore = 4;
  const std::string closed = "Open Com Port before sending cmmands.";
  const char* const silent = "Video Standard not detected. Verify communications.";
  const std::size_t all = SequenceOf(false, true).size();
  const Incident kIncidents[] = {
      {"another click on Send Setup",
       [](LinkRig& rig) { rig.form.bSConfig.Press(); },
       all,
       {},
       SendEnd::kComplete},
      {"another call", [](LinkRig& rig) { rig.wholeSend.SendConfiguration(); }, all, {}, SendEnd::kComplete},
      {"the port is closed", [](LinkRig& rig) { rig.form.bClose.Press(); }, kBefore,
       WithRepeats({}, all - kBefore + 1, closed, silent), SendEnd::kNotConfirmed},
      {"the program ends", [](LinkRig& rig) { rig.pump.End(); }, kBefore, {}, SendEnd::kStopped},
      {"told to stop",
       [](LinkRig& rig) { rig.wholeSend.stopRequested = [] { return true; }; },
       kBefore,
       {},
       SendEnd::kStopped},
      {"a value does not fit its byte",
       [](LinkRig& rig) { rig.vars.CodeSources[1].GenNumber = rig.vars.CodeSources[3].GenNumber = 256; },
       10,
       {"6  Overflow"},
       SendEnd::kFailed},
      {"a parameter's row has gone",
       [](LinkRig& rig) { rig.form.lDesc.Unload(2); },
       all,
       {},
       SendEnd::kComplete},
  };
  for (const Incident& c : kIncidents) {
    SCOPED_TRACE(c.what);
    LinkRig rig;
    std::size_t sent = 0;
    rig.commands.MessageSent.Connect([&](const SentMessage&) {
      if (++sent == kBefore + 2) c.happen(rig);
    });
    rig.form.bSConfig.OperatorClick();
    std::vector<std::string> expected = FieldsOf(SequenceOf(false, true));
    expected.resize(c.goOut);
    expected = Framed(std::move(expected));
    if (c.goOut < all) expected.pop_back();
    EXPECT_EQ(rig.Sent(), expected);
    EXPECT_EQ(rig.dialogs.Texts(), c.boxes);
    EXPECT_EQ(rig.wholeSend.Result().end, c.end);
    ExpectIdle(rig);
  }
}

TEST(WholeSend, PassesOverWindowsWithoutARow) {
  LinkRig rig;
  rig.vars.CharWindows.push_back({});
  rig.vars.SystemParameters.push_back({4, 1, "Without a row", 6});
  rig.form.bSConfig.OperatorClick();
  std::vector<std::string> expected = FieldsOf(SequenceOf(false, true));
  expected.insert(expected.begin() + 2, "15 0 192 1 4 6 0 0 0");
  EXPECT_EQ(rig.Sent(), Framed(expected));
  EXPECT_EQ(rig.wholeSend.Result().end, SendEnd::kComplete);
}

TEST(WholeSend, TellsWhenTheUnitDoesNotAnswerAtTheEnd) {
  LinkRig rig;
  std::size_t sent = 0;
  rig.commands.MessageSent.Connect([&](const SentMessage&) {
    if (++sent == SequenceOf(false, true).size() + 2) rig.line.Unit().Faults().mute = true;
  });
  rig.form.bSConfig.OperatorClick();
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("Video Standard not detected. Verify communications."));
  EXPECT_EQ(rig.wholeSend.Result().end, SendEnd::kNotConfirmed);
  ExpectIdle(rig);
}

TEST(WholeSend, GivesTheStatusBarItsWholeTime) {
  LinkRig rig;
  int cleared = 0;
  rig.form.tClearStat.OnTick([&] { ++cleared; });
  rig.form.tClearStat.SetEnabled(true);
  rig.pump.Pass(9000);
  rig.form.bSConfig.OperatorClick();
  rig.pump.Pass(9000);
  EXPECT_EQ(cleared, 0);
  rig.form.tClearStat.SetEnabled(false);
  rig.form.bSConfig.OperatorClick();
  EXPECT_FALSE(rig.form.tClearStat.Enabled());
}

}  // namespace
}  // namespace marlinset
