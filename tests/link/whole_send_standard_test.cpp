// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

constexpr int kStandard1080i60 = 4;
const char* const kNotDetected = "Video Standard not detected. Verify communications.";
const char* const kChange = "Video Standard will be changed!";
const char* const kMismatch = "Video Standard Mismatch, Switch to Manual Mode?";
const char* const kAdvice = "Change Input Source Video, or select the appropriate Video Standard.";

/// A unit that sees 1080i/60 and a configuration for another standard: what the operator is asked and what
/// goes out before the sequence.
struct StandardCase {
  const char* what;
  const char* configuration;
  bool manual;
  SendEnd end;
  std::vector<BoxAnswer> answers;
  std::vector<std::string> boxes;
  std::vector<std::string> sent;  ///< behind the first question for the status
};

constexpr BoxAnswer kYes = BoxAnswer::kYes;
constexpr BoxAnswer kNo = BoxAnswer::kNo;
const char* const kSense = "15 0 52";
const char* const kManual = "15 0 192 0 0 1 0 0 0";

const StandardCase kCases[] = {
    {"agreed", "1080i/60", false, SendEnd::kComplete, {}, {}, {}},
    {"by command, refused", "525i/60", true, SendEnd::kRefused, {kNo}, {kChange}, {}},
    {"by command", "525i/60", true, SendEnd::kComplete, {kYes}, {kChange}, {"15 0 36 6", kSense}},
    {"by command, 720p/60", "720p/60", true, SendEnd::kNoCode, {kYes}, {kChange}, {}},
    {"by command, without a code", "2160p", true, SendEnd::kNoCode, {kYes}, {kChange}, {}},
    {"by input, refused",
     "525i/60",
     false,
     SendEnd::kRefused,
     {kNo, BoxAnswer::kOk},
     {kMismatch, kAdvice},
     {}},
    {"by input", "525i/60", false, SendEnd::kComplete, {kYes}, {kMismatch}, {kManual, "15 0 36 6", kSense}},
    {"by input, 720p/60",
     "720p/60",
     false,
     SendEnd::kComplete,
     {kYes},
     {kMismatch},
     {kManual, "15 0 36 8", kSense}},
    {"by input, without a code", "2160p", false, SendEnd::kNoCode, {kYes}, {kMismatch}, {kManual}},
};

TEST(WholeSendStandard, BringsUnitAndConfigurationTogether) {
  for (const StandardCase& c : kCases) {
    SCOPED_TRACE(c.what);
    LinkRig rig;
    rig.line.Unit().SetStandard(kStandard1080i60);
    rig.line.Unit().SetManual(c.manual);
    SelectText(rig.form.comVS, c.configuration);
    rig.dialogs.answers.assign(c.answers.begin(), c.answers.end());
    int enabled = 0;
    rig.form.bSConfig.Changed.Connect([&] { enabled += rig.form.bSConfig.Enabled() ? 1 : 0; });
    rig.form.bSConfig.OperatorClick();

    EXPECT_EQ(rig.dialogs.Texts(), c.boxes);
    if (!c.boxes.empty()) {
      EXPECT_EQ(rig.dialogs.shown[0].caption, "7340 Marlinset");
      EXPECT_EQ(rig.dialogs.shown[0].buttons, BoxButtons::kYesNo);
    }
    std::vector<std::string> expected{"15 0 53", kSense};
    expected.insert(expected.end(), c.sent.begin(), c.sent.end());
    const bool goesOn = c.end == SendEnd::kComplete;
    EXPECT_EQ(rig.Panel(3) == "Changed to Manual Mode", !goesOn && !c.sent.empty());
    if (goesOn) expected.emplace_back("15 0 192 7 2 44 1 0 0");
    std::vector<std::string> sent = rig.Sent();
    if (goesOn) sent.resize(expected.size());
    EXPECT_EQ(sent, expected);
    EXPECT_EQ(rig.wholeSend.Result().end, c.end);
    EXPECT_EQ(rig.form.comVS.BackColor(), kWindowColor);
    EXPECT_EQ(rig.form.comVS.Text(), c.configuration);
    EXPECT_TRUE(rig.form.bSConfig.Enabled());
    EXPECT_EQ(enabled, 1);  // once, however often the prologue ran
  }
}

/// A line that is read only now and then hands over what came meanwhile in one piece.
TEST(WholeSendStandard, KeepsTheAcknowledgementOfTheModeApartFromTheStatus) {
  LinkRig rig;
  rig.line.Unit().SetStandard(kStandard1080i60);
  SelectText(rig.form.comVS, "525i/60");
  rig.line.OnComm({});
  rig.line.Unit().Faults().lateAcks = rig.line.Unit().Faults().lateFrames = std::chrono::milliseconds{10};
  rig.dialogs.answers = {kYes};
  rig.form.bSConfig.OperatorClick();
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre(kMismatch));
  EXPECT_EQ(rig.wholeSend.Result().end, SendEnd::kComplete);
}

TEST(WholeSendStandard, AsksAgainWhileTheUnitKeepsItsOwn) {
  LinkRig rig;
  rig.line.Unit().SetStandard(kStandard1080i60);
  SelectText(rig.form.comVS, "525i/60");
  // The unit goes back to its input each time.
  rig.commands.MessageSent.Connect([&](const SentMessage& message) {
    if (std::string_view(message.command) == "cmdSetVideoStandard") rig.line.Unit().SetManual(false);
  });
  rig.dialogs.answers = {kYes, kYes, kNo};
  rig.form.bSConfig.OperatorClick();
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre(kMismatch, kMismatch, kMismatch, kAdvice));
  EXPECT_EQ(rig.Panel(3), "Video Present ");
  EXPECT_EQ(rig.wholeSend.Result().end, SendEnd::kRefused);
}

struct SilenceCase {
  const char* what;
  void (*prepare)(LinkRig& rig);
  std::vector<std::string> boxes;
  std::vector<std::string> sent;
  SendEnd end;
};

TEST(WholeSendStandard, SendsNothingToAUnitThatDoesNotTellItsOwn) {
  const char* const kCable =
      "Ensure that the PC is properly connected and the proper Com Port is selected from the Options Menu.";
  const SilenceCase kSilences[] = {
      {"silence",
       [](LinkRig& rig) { rig.line.Unit().Faults().mute = true; },
       {kCable, kNotDetected},
       {"15 0 53", kSense, kSense},
       SendEnd::kNotDetected},
      {"local mode",
       [](LinkRig& rig) { rig.line.Unit().SetLocal(true); },
       {"Local Mode detected, Interactive mode suspended.", kNotDetected},
       {"15 0 53", kSense, kSense},
       SendEnd::kNotDetected},
      {"no standard at the input",
       [](LinkRig& rig) { rig.line.Unit().SetStandard(0); },
       {kNotDetected},
       {"15 0 53", kSense},
       SendEnd::kNotDetected},
      {"no such port",
       [](LinkRig& rig) { rig.line.SetPorts({2}); },
       {"There is no such device."},
       {},
       SendEnd::kPortClosed},
      {"told to stop",
       [](LinkRig& rig) { rig.wholeSend.stopRequested = [] { return true; }; },
       {},
       {"15 0 53"},
       SendEnd::kStopped},
  };
  for (const SilenceCase& c : kSilences) {
    SCOPED_TRACE(c.what);
    LinkRig rig;
    rig.form.mnuInter.SetChecked(true);
    rig.form.InterTime.SetInterval(0);  // no polling here
    c.prepare(rig);
    rig.form.bSConfig.OperatorClick();
    EXPECT_EQ(rig.dialogs.Texts(), c.boxes);
    EXPECT_EQ(rig.Sent(), c.sent);
    EXPECT_EQ(rig.wholeSend.Result().end, c.end);
    EXPECT_EQ(rig.form.comVS.BackColor(), kWindowColor);
    EXPECT_TRUE(rig.form.bSConfig.Enabled());
    EXPECT_EQ(rig.form.InterTime.Enabled(), c.end != SendEnd::kPortClosed);
    EXPECT_FALSE(rig.wholeSend.Running());
  }
}

}  // namespace
}  // namespace marlinset
