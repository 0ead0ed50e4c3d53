// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QLabel>
#include <QTimer>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <utility>
#include <vector>

#include "gui/qt_dialogs.h"
#include "gui/send_progress.h"
#include "gui/widgets/operator_queue.h"
#include "tests/window/live_window_test.h"

namespace marlinset {
namespace {

using testing::IsEmpty;

bool HasLabel(LiveWindow& desk, const char* text) {
  const auto labels = desk.Window().findChildren<QLabel*>();
  return std::any_of(labels.begin(), labels.end(),
                     [text](const QLabel* label) { return label->text() == QLatin1String(text); });
}

struct LateAnswersTest : LiveWindowTest {
  /// Runs `deed` when the next exchange has lasted a while.
  void InTheWait(std::function<void()> deed) { studio_.pump.At(studio_.pump.Now() + 5, std::move(deed)); }
  /// While the unit still owes the answer to a first tick, the operator ticks window 14, then does `more`.
  void TickInAWait(const std::function<void()>& more) {
    desk_.Click(desk_.Widget("chOnOff(1)"));
    InTheWait([&] {
      desk_.Click(desk_.Widget("chOnOff(14)"));
      TurnQtsLoop();
      more();
    });
    LiveWindow::Settle();
    EXPECT_EQ(form_.chOnOff(14).On(), !wasOn_);
  }

  const bool wasOn_ = form_.chOnOff(14).On();
};

/// A panel appears at once, because choosing it sends nothing; what comes next is meant for that panel.
TEST_P(LateAnswersTest, WhatFallsIntoAWaitIsDoneWhenItIsOver) {
  const int before = form_.udVer(14).Value();
  const bool preview = form_.chPrev.On();
  TickInAWait([&] {
    for (int i = 0; i < 3; ++i) desk_.ClickArrow(desk_.Widget("udVer(14)"), false);
    desk_.Widget("tWinMess").setFocus();
    desk_.Type("AB");
    TurnQtsLoop();
    EXPECT_TRUE(HasLabel(desk_, "2 of 32 characters"));
    EXPECT_EQ(form_.udVer(14).Value(), before) << "the unit still owes an answer";
    EXPECT_EQ(dynamic_cast<QAbstractButton&>(desk_.Widget("chOnOff(14)")).isChecked(), !wasOn_)
        << "but the operator sees what he did";
    for (const auto& [key, panel] : {std::pair{Qt::Key_2, &form_.fOutputs}, {Qt::Key_3, &form_.fWindows}}) {
      desk_.Key(key, Qt::AltModifier);
      TurnQtsLoop();
      EXPECT_TRUE(panel->Visible());
    }
    desk_.Key(Qt::Key_W, Qt::AltModifier);
  });
  EXPECT_EQ(std::abs(form_.udVer(14).Value() - before), 3 * form_.udVer(14).Increment());
  EXPECT_NE(form_.chPrev.On(), preview);
}

/// Unsaved work that is kept during a wait includes them.
TEST_P(LateAnswersTest, PendingEditsAreWhatTheControlsWillHold) {
  std::vector<std::uint8_t> seen;
  desk_.Widget("udVer(14)").setFocus();
  desk_.Key(Qt::Key_PageDown);  // ten steps, each with an answer to wait for
  InTheWait([&] {
    const std::vector<std::function<void()>> edits = {
        [&] { desk_.Key(Qt::Key_W, Qt::AltModifier); },
        [&] { desk_.Click(desk_.Widget("oVITC(1)")); },
        [&] { desk_.Pick("ComWin(2)", 3); },
        [&] { desk_.Widget("tWinMess").setFocus(), desk_.Type("AB"); },
        [&] {
          desk_.Widget("udHor(1)").setFocus(), desk_.Key(Qt::Key_A, Qt::ControlModifier), desk_.Type("9999");
        },
        [&] { desk_.Key(Qt::Key_4, Qt::AltModifier), TurnQtsLoop(), EditFirstParameter(desk_, "77"); },
        [&] { desk_.Key(Qt::Key_F2), desk_.Type("-"), desk_.Key(Qt::Key_Return); }};
    for (std::size_t i = 0; i < edits.size(); ++i) {
      edits[i]();
      TurnQtsLoop();
      const bool last = i + 1 == edits.size();
      EXPECT_EQ(studio_.AsSeen() == seen, last) << "edit " << i << "; the last one is no number";
      seen = studio_.AsSeen();
    }
  });
  LiveWindow::Settle();
  EXPECT_EQ(studio_.AsSeen(), seen);
  EXPECT_THAT(OperatorQueue::OfProgram().Pending(), IsEmpty());
}

TEST_P(LateAnswersTest, CloseActsInAWaitAndKeepsWhatWasDoneBefore) {
  TickInAWait([&] {
    desk_.Click(desk_.Widget("bClose"));
    TurnQtsLoop();
    EXPECT_FALSE(studio_.line.PortOpen());
  });
}

/// The answer to the message under way is still taken, whatever the operator presses meanwhile; Esc is no
/// Stop.
TEST_P(LateAnswersTest, StopEndsASendInItsWait) {
  const auto* progress = desk_.Window().findChild<SendProgress*>();
  for (const bool byKey : {false, true}) {
    const QPoint place = progress->pos();
    desk_.Click(desk_.Widget("bSConfig"));
    studio_.pump.At(studio_.pump.Now() + 20LL * GetParam(), [&] {
      TurnQtsLoop();
      const SendResult now = studio_.tool.wholeSend.Result();
      EXPECT_EQ(progress->Text().toStdString(),
                std::to_string(now.messages) + " of " + std::to_string(now.planned));
      desk_.Key(Qt::Key_Escape);
      TurnQtsLoop();
      EXPECT_FALSE(studio_.tool.wholeSend.Stopping());
      if (byKey) {
        desk_.Key(Qt::Key_Period, Qt::ControlModifier);
      } else {
        desk_.Click(desk_.Widget("bStop"));
      }
      TurnQtsLoop();
      EXPECT_TRUE(studio_.tool.wholeSend.Stopping());
      EXPECT_EQ(progress->Text(), QStringLiteral("Stopping"));
    });
    studio_.dialogs.shown.clear();
    LiveWindow::Settle();
    const SendResult& result = studio_.tool.wholeSend.Result();
    EXPECT_EQ(result.end, SendEnd::kStopped);
    EXPECT_THAT(result.messages, testing::AllOf(testing::Gt(2), testing::Lt(result.planned)));
    EXPECT_EQ(result.Doubtful(), 0);
    EXPECT_EQ(progress->Text(), QString());
    EXPECT_EQ(progress->pos(), place);
    EXPECT_THAT(studio_.Boxes(), testing::ElementsAre(testing::StartsWith("The send was stopped after ")));
    EXPECT_FALSE(desk_.Widget("bStop").isEnabled());
    EXPECT_TRUE(desk_.Widget("bSConfig").isEnabled());
  }
  form_.bSConfig.OperatorClick();  // the unit holds all of it again
}

/// With a unit that falls silent, a send is one box after the other.
TEST_P(LateAnswersTest, CtrlPeriodInABoxStopsTheSendBehindIt) {
  QtDialogs onScreen;
  onScreen.SetStop(form_.bStop);
  const auto atFirst = studio_.dialogs.onShow;
  studio_.dialogs.shown.clear();
  studio_.dialogs.onShow = [&](const MessageBox& box) {
    if (studio_.dialogs.shown.size() > 1) return BoxAnswer::kOk;
    QTimer::singleShot(0, &desk_.Window(), [&] {
      TurnQtsLoop();  // the box takes the focus
      desk_.Key(Qt::Key_Period, Qt::ControlModifier);
    });
    return onScreen.Present(box);
  };
  desk_.Click(desk_.Widget("bSConfig"));
  studio_.pump.At(studio_.pump.Now() + 20LL * GetParam(), [&] { studio_.line.Unit().Faults().mute = true; });
  LiveWindow::Settle();
  EXPECT_EQ(studio_.tool.wholeSend.Result().end, SendEnd::kStopped);
  EXPECT_THAT(studio_.Boxes(),
              testing::ElementsAre(testing::_, testing::StartsWith("The send was stopped after ")));
  EXPECT_EQ(studio_.tool.wholeSend.Result().Doubtful(), 1) << "nothing goes out after the box";
  studio_.dialogs.onShow = atFirst;
  studio_.line.Unit().Faults().mute = false;
  form_.bSConfig.OperatorClick();  // the unit holds all of it again
}

TEST_P(LateAnswersTest, TheWindowClosesInAWaitAndLosesNothing) {
  studio_.dialogs.shown.clear();
  studio_.dialogs.onShow = [&](const MessageBox& box) {
    EXPECT_EQ(form_.chOnOff(14).On(), !wasOn_);
    return FakeDialogs::Default(box.buttons);
  };
  TickInAWait([&] {
    desk_.Window().close();
    TurnQtsLoop();
    EXPECT_TRUE(studio_.pump.Ending()) << "no wait goes on";
  });
  EXPECT_FALSE(form_.Visible());
  EXPECT_THAT(studio_.Boxes(), testing::ElementsAre("Save Changes before Exit?",
                                                    "Restart next time with this configuration?"));
}

/// A change of the font size switches them off for a moment.
TEST_P(LateAnswersTest, TheWindowClosesWhenTheCharactersAreOnAgain) {
  std::vector<SentMessage> sent;
  studio_.tool.commands.MessageSent.Connect([&](const SentMessage& message) {
    sent.push_back(message);
    if (!message.meaning.starts_with("Characters off")) return;
    InTheWait([&] {
      desk_.Window().close();
      TurnQtsLoop();
      EXPECT_FALSE(studio_.pump.Ending());
      EXPECT_EQ(desk_.Window().findChild<SendProgress*>()->Text(), QStringLiteral("Closing"));
    });
  });
  desk_.Pick("ComWin(3)", 1 - form_.ComWin(3).ListIndex());
  LiveWindow::Settle();
  EXPECT_FALSE(form_.Visible());
  ASSERT_FALSE(sent.empty());
  EXPECT_THAT(sent.back().meaning, testing::StartsWith("Characters on again"));
  EXPECT_EQ(sent.back().verdict, Verdict::kAcknowledged);
}

INSTANTIATE_TEST_SUITE_P(AnswersAfter, LateAnswersTest, testing::Values(15, 40, 120));

}  // namespace
}  // namespace marlinset
