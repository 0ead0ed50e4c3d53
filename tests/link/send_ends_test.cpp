// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "tests/link/send_sequence.h"

namespace marlinset {
namespace {

using enum SendEnd;

const char* const kSilent = "Video Standard not detected. Verify communications.";
const char* const kMismatch = "Video Standard Mismatch, Switch to Manual Mode?";
const char* const kSizeError = "Char Size Assignment error";
const char* const kClosed = "Open Com Port before sending cmmands.";

/// How many messages have gone out when the characters are off for the font size.
std::size_t MessagesUpToOff() {
  const Texts framed = Sequence().Framed();
  return static_cast<std::size_t>(std::ranges::find(framed, "2 8 34 0") - framed.begin()) + 1;
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
  bool unawaited = false;  ///< the last messages go out without their answers being awaited
};

void Stop(LinkRig& rig) {
  rig.form.bStop.OperatorClick();
}
void StopByScript(LinkRig& rig) {
  rig.wholeSend.stopRequested = [] { return true; };
}

void CloseTheWindow(LinkRig& rig) {
  rig.commands.EndWaits();
  EXPECT_FALSE(rig.pump.Ending());
}
/// While the line still holds the bytes of each message.
void CloseTheWindowTwice(LinkRig& rig) {
  rig.line.SetPace(1200);
  for (int i = 0; i < 2; ++i) rig.commands.EndWaits();
  EXPECT_TRUE(rig.pump.Ending());
}
void CloseTheWindowOnASilentUnit(LinkRig& rig) {
  rig.line.Unit().Faults().mute = true;
  rig.commands.EndWaits();
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
  const std::size_t offForSize = MessagesUpToOff();
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
      {offForSize, CloseTheWindow, onAgain, kStopped, {}},
      {offForSize, CloseTheWindowTwice, onAgain, kStopped, {}, true},
      {offForSize, CloseTheWindowOnASilentUnit, onAgain, kStopped, {kSizeError}, true},
      {offForSize, [](LinkRig& rig) { rig.pump.End(); }, onAgain, kStopped, {}, true},
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
    EXPECT_EQ(rig.wholeSend.Result().Doubtful() > 1, c.end == kNotConfirmed || c.unawaited) << "no answer";
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

void LeaveInteractiveMode(LinkRig& rig) {
  rig.form.mnuInter.SetChecked(false);
}

/// An undo in interactive mode sends several settings in a row, the Off and the On among them.
TEST(WholeSend, AnUndoLeavesTheCharactersOnWhateverHappensInItsMiddle) {
  for (const auto happen : {CloseTheWindow, LeaveInteractiveMode}) {
    LinkRig rig;
    rig.OpenIdentified();
    rig.form.mnuInter.SetChecked(true);
    rig.line.Unit().Faults().drop = 1;  // the unit takes the Off, but its answer is lost
    rig.pump.At(rig.pump.Now() + 5, [&] { happen(rig); });
    ComboBox& size = rig.form.ComWin(FrmStart::kFontSize);
    rig.wholeSend.SendChangesOf([&] { SelectText(size, "Large (32 lines/field)"); });
    EXPECT_EQ(rig.dialogs.Texts(), Texts{"Char On error"});
    EXPECT_EQ(rig.Sent(), (Texts{"2 8 34 0", "2 8 32 " + std::to_string(size.ListIndex()), "2 8 34 1"}));
    EXPECT_EQ(rig.pump.Ending(), happen == CloseTheWindow);
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

/// The answer to the Off is lost, so the send passes over the On.
struct CharactersMayBeOff : testing::Test {
  CharactersMayBeOff() {
    rig_.commands.MessageSent.Connect([this](const SentMessage&) {
      if (++sent_ == MessagesUpToOff() - 1) rig_.line.Unit().Faults().drop = 1;
    });
  }

  LinkRig rig_;
  std::size_t sent_ = 0;
};

TEST_F(CharactersMayBeOff, IsSaidAtAStop) {
  rig_.commands.MessageSent.Connect([&](const SentMessage& message) {
    if (message.verdict == Verdict::kUnacknowledged) rig_.form.bStop.OperatorClick();
  });
  rig_.form.bSConfig.OperatorClick();
  EXPECT_EQ(rig_.wholeSend.Result().end, kStopped);
  EXPECT_THAT(rig_.dialogs.shown.back().remedy,
              testing::HasSubstr("choose Options > Char Inserter > Char On"));
}

TEST_F(CharactersMayBeOff, ButTheyComeOnIfTheWindowClosesInThatWait) {
  rig_.commands.MessageSent.Connect([&](const SentMessage&) {
    if (sent_ == MessagesUpToOff() - 1) rig_.pump.At(rig_.pump.Now() + 5, [&] { CloseTheWindow(rig_); });
  });
  rig_.form.bSConfig.OperatorClick();
  EXPECT_EQ(rig_.dialogs.Texts(), Texts{"Char On error"});
  EXPECT_EQ(rig_.Sent().back(), "2 8 34 1");
}

TEST_F(CharactersMayBeOff, ButAClosedWindowDoesNotWaitForThem) {
  rig_.commands.MessageSent.Connect([&](const SentMessage&) {
    if (sent_ != MessagesUpToOff() + 2) return;  // behind the one that would switch them on
    rig_.commands.EndWaits();
    EXPECT_TRUE(rig_.pump.Ending());
  });
  rig_.form.bSConfig.OperatorClick();
  EXPECT_EQ(rig_.Sent().size(), MessagesUpToOff() + 2);
}

}  // namespace
}  // namespace marlinset
