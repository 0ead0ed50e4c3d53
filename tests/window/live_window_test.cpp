// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/window/live_window.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QTimer>
#include <functional>

#include "gui/qt_dialogs.h"
#include "gui/send_progress.h"
#include "tests/storm/twin.h"
#include "tests/window/studio.h"

namespace marlinset {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

struct LiveWindowTest : testing::TestWithParam<int> {
  LiveWindowTest() {
    desk_.Show(2);
    studio_.line.ClearSent();
  }
  ~LiveWindowTest() override {
    EXPECT_THAT(desk_.Disagreements(), IsEmpty());
    if (form_.mnuInter.Checked()) {
      std::vector<std::string> differences = DifferencesToTwin(studio_);
      // A click on the number of VITC lines does not send it; the next whole send does.
      std::erase_if(differences, [](const std::string& line) { return line.starts_with("cmdVitcSource"); });
      EXPECT_THAT(differences, IsEmpty());
    }
  }

  Studio studio_{GetParam()};
  FrmStart& form_ = studio_.form;
  LiveWindow desk_{studio_};
};

/// Chooses an entry of a drop-down list with the mouse.
void Pick(LiveWindow& desk, const std::string& name, int entry) {
  auto& box = dynamic_cast<QComboBox&>(desk.Widget(name));
  desk.Click(box);
  TurnQtsLoop();
  QAbstractItemView& list = *box.view();
  desk.Click(*list.viewport(), list.visualRect(list.model()->index(entry, 0)).center());
}

QTableView& Parameters(const LiveWindow& desk) {
  return dynamic_cast<QTableView&>(desk.Widget("pParIn"));
}

void EditFirstParameter(LiveWindow& desk, const char* digits) {
  QTableView& table = Parameters(desk);
  desk.Click(*table.viewport(), table.visualRect(table.model()->index(0, 2)).center());
  desk.Key(Qt::Key_F2);
  desk.Type(digits);
  desk.Key(Qt::Key_Return);
}

bool HasLabel(LiveWindow& desk, const char* text) {
  const auto labels = desk.Window().findChildren<QLabel*>();
  return std::any_of(labels.begin(), labels.end(),
                     [text](const QLabel* label) { return label->text() == QLatin1String(text); });
}

/// Clicks on an entry of the menu that popped up last.
void ClickEntry(LiveWindow& desk, const char* name) {
  TurnQtsLoop();
  auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
  for (QAction* entry : menu.actions()) {
    const QString id = entry->objectName();
    if (id == QLatin1String(name)) return desk.Click(menu, menu.actionGeometry(entry).center());
  }
}

void ChooseCharOff(LiveWindow& desk) {
  auto& bar = *desk.Window().findChild<QMenuBar*>();
  const QList<QAction*> menus = bar.actions();
  const auto options = std::find_if(menus.begin(), menus.end(), [](const QAction* menu) {
    return menu->text() == QLatin1String("&Options");
  });
  desk.Click(bar, bar.actionGeometry(*options).center());
  ClickEntry(desk, "mnuChar");
  ClickEntry(desk, "mnuCharOff");
}

/// What an operator does by hand in one go, and the same by a script.
struct Deed {
  const char* name;
  int view;
  std::function<void(LiveWindow&)> byHand;
  std::function<void(FrmStart&)> byScript;
};

const Deed kDeeds[] = {
    {"arrow of a spin", 2, [](LiveWindow& desk) { desk.ClickArrow(desk.Widget("udHor(1)"), true); },
     [](FrmStart& form) {
       form.udHor(1).OperatorHover();
       form.udHor(1).OperatorStep(true, 1);
     }},
    {"check box", 2, [](LiveWindow& desk) { desk.Click(desk.Widget("chOnOff(1)")); },
     [](FrmStart& form) {
       form.chOnOff(1).OperatorHover();
       form.chOnOff(1).OperatorCheck(!form.chOnOff(1).On());
     }},
    {"option", 1, [](LiveWindow& desk) { desk.Click(desk.Widget("oVITC(1)")); },
     [](FrmStart& form) { form.oVITC(1).OperatorClick(); }},
    {"list that drops down", 1, [](LiveWindow& desk) { Pick(desk, "comTB(1)", 2); },
     [](FrmStart& form) { form.comTB(1).OperatorSelect(2); }},
    {"cell of the parameter list", 3, [](LiveWindow& desk) { EditFirstParameter(desk, "77"); },
     [](FrmStart& form) { FirstParameter(form).OperatorSpin(77); }},
    {"five keys on a list, and letters that do nothing", 2,
     [](LiveWindow& desk) {
       desk.Widget("ComWin(2)").setFocus();
       for (int i = 0; i < 5; ++i) desk.Key(Qt::Key_Down);
       desk.Type("W1");
     },
     [](FrmStart& form) {
       for (int i = 0; i < 5; ++i) form.ComWin(2).OperatorSelect(form.ComWin(2).ListIndex() + 1);
     }},
    {"wheel on what has the focus", 2,
     [](LiveWindow& desk) {
       desk.Widget("UDDur").setFocus();
       desk.Wheel(desk.Widget("ComWin(2)"), true);
       for (int i = 0; i < 3; ++i) desk.Wheel(desk.Widget("UDDur"), true);
     },
     [](FrmStart& form) {
       for (int i = 0; i < 3; ++i) form.UDDur.OperatorStep(true, 1);
     }},
    {"text", 2,
     [](LiveWindow& desk) {
       desk.Widget("tWinMess").setFocus();
       desk.Type("AC");
       LiveWindow::Settle();  // the echoes leave the cursor where it is
       desk.Key(Qt::Key_Left);
       desk.Type("B");
     },
     [](FrmStart& form) {
       for (const char* text : {"A", "AC", "ABC"}) form.tWinMess.OperatorType(text);
     }},
    {"cell that was chosen before", 3, [](LiveWindow& desk) { EditFirstParameter(desk, "80"); },
     [](FrmStart& form) { FirstParameter(form).OperatorSpin(80); }},
    {"mnemonic, twice", 2,
     [](LiveWindow& desk) {
       for (int i = 0; i < 2; ++i) desk.Key(Qt::Key_W, Qt::AltModifier);
       TurnQtsLoop();
       EXPECT_FALSE(desk.Widget("chPrev").property("down").toBool()) << "nothing that could still be lost";
     },
     [](FrmStart& form) {
       for (int i = 0; i < 2; ++i) form.chPrev.OperatorCheck(!form.chPrev.On());
     }},
    {"menu", 2, ChooseCharOff, [](FrmStart& form) { form.mnuCharOff.OperatorClick(); }},
};

/// Touch pads and remote desktops deliver press and release in one piece.
TEST_P(LiveWindowTest, OneClickIsOneStepAndOneMessage) {
  Studio twin(GetParam());
  for (const Deed& deed : kDeeds) {
    SCOPED_TRACE(deed.name);
    for (Studio* one : {&studio_, &twin}) one->form.oView(deed.view).SetValue(true);
    LiveWindow::Settle();
    for (Studio* one : {&studio_, &twin}) one->line.ClearSent();
    deed.byHand(desk_);
    LiveWindow::Settle();
    deed.byScript(twin.form);
    EXPECT_FALSE(twin.line.Sent().empty());
    EXPECT_THAT(studio_.line.Sent(), ElementsAreArray(twin.line.Sent()));
  }
}

TEST_P(LiveWindowTest, AClickBeyondTheSecondKeepsTheNumberSelected) {
  desk_.Show(3);
  QTableView& table = Parameters(desk_);
  const QRect name = table.visualRect(table.model()->index(0, 2));
  const QRect value = table.visualRect(table.model()->index(0, 3));
  int number = 80;
  for (const QPoint at : {name.center(), value.center(), value.bottomRight() - QPoint(5, 5)}) {
    for (const int times : {3, 4}) {
      desk_.Click(*table.viewport(), at, times);
      LiveWindow::Settle();
      desk_.Type(std::to_string(++number).c_str());
      desk_.Key(Qt::Key_Return);
      LiveWindow::Settle();
      EXPECT_EQ(FirstParameter(form_).Value(), number);
    }
  }
}

/// The count follows the panels; its list leads to the controls, and nothing of that goes to the unit.
TEST_P(LiveWindowTest, RemarksAreCountedAndLeadToTheirControls) {
  QWidget& counter = desk_.Widget("lRemarks");
  const std::string before = form_.lRemarks.Caption();
  desk_.Widget("tWinMess").setFocus();
  desk_.Type("A{");
  desk_.Key(0, Qt::NoModifier, QString(QChar(0xE9)));
  LiveWindow::Settle();
  int row = form_.udVal.UBound();
  while (!form_.udVal(row).Visible()) --row;
  form_.udVal(row).OperatorSpin(256);
  LiveWindow::Settle();
  EXPECT_EQ(form_.lRemarks.Caption(), "2 remarks") << "there were \"" << before << '"';
  EXPECT_EQ(counter.accessibleName(), "2 remarks");
  studio_.line.ClearSent();
  const std::pair<int, const char*> choices[] = {{0, "tWinMess"}, {1, "pParIn"}};
  for (const auto& [entry, control] : choices) {
    desk_.Show(0);
    counter.setFocus();
    desk_.Key(Qt::Key_Space);
    LiveWindow::Settle();
    ASSERT_TRUE(QApplication::activePopupWidget());
    for (int i = 0; i < entry; ++i) desk_.Key(Qt::Key_Down);
    desk_.Key(Qt::Key_Return);
    LiveWindow::Settle();
    EXPECT_FALSE(QApplication::activePopupWidget());
    EXPECT_TRUE(desk_.Widget(control).hasFocus()) << control;
  }
  const QModelIndex cell = Parameters(desk_).currentIndex();
  EXPECT_EQ(cell.siblingAtColumn(2).data().toString().toStdString(), form_.lDesc(row).Caption());
  EXPECT_THAT(studio_.line.Sent(), IsEmpty());
  desk_.Show(2);
  form_.tWinMess.OperatorType("A");
  form_.udVal(row).OperatorSpin(255);
  LiveWindow::Settle();
  EXPECT_EQ(counter.accessibleName(), "No remarks");
}

TEST_P(LiveWindowTest, KeysUndoAndRedoButAFieldFirstUndoesItself) {
  const auto undo = [this] {
    desk_.Key(Qt::Key_Z, Qt::ControlModifier);
    LiveWindow::Settle();
  };
  const int before = form_.udVer(14).Value();
  desk_.ClickArrow(desk_.Widget("udVer(14)"), false);
  LiveWindow::Settle();
  const int moved = form_.udVer(14).Value();
  EXPECT_NE(moved, before);
  undo();
  EXPECT_EQ(form_.udVer(14).Value(), before);
  desk_.Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  LiveWindow::Settle();
  EXPECT_EQ(form_.udVer(14).Value(), moved);

  desk_.Widget("tWinMess").setFocus();
  desk_.Type("AB");
  LiveWindow::Settle();
  undo();
  EXPECT_EQ(form_.tWinMess.Text(), "") << "the field's own undo, which the tool takes for typing";
  EXPECT_THAT(studio_.tool.history.RedoNames(), IsEmpty());
  undo();
  EXPECT_THAT(studio_.tool.history.RedoNames(), testing::SizeIs(1));
  undo();
  EXPECT_EQ(form_.udVer(14).Value(), before);
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

/// Work that is kept in a wait holds them.
TEST_P(LateAnswersTest, PendingEditsAreWhatTheControlsWillHold) {
  std::vector<std::uint8_t> seen;
  desk_.Widget("udVer(14)").setFocus();
  desk_.Key(Qt::Key_PageDown);  // ten steps, each with an answer to wait for
  InTheWait([&] {
    const std::vector<std::function<void()>> edits = {
        [&] { desk_.Key(Qt::Key_W, Qt::AltModifier); },
        [&] { desk_.Click(desk_.Widget("oVITC(1)")); },
        [&] { Pick(desk_, "ComWin(2)", 3); },
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

/// A font size switches them off for a moment.
TEST_P(LateAnswersTest, TheWindowClosesWhenTheCharactersAreOnAgain) {
  std::vector<SentMessage> sent;
  studio_.tool.commands.MessageSent.Connect([&](const SentMessage& message) {
    sent.push_back(message);
    if (!message.meaning.starts_with("Characters off")) return;
    InTheWait([&] {
      desk_.Window().close();
      TurnQtsLoop();
      EXPECT_FALSE(studio_.pump.Ending());
    });
  });
  Pick(desk_, "ComWin(3)", 1 - form_.ComWin(3).ListIndex());
  LiveWindow::Settle();
  EXPECT_FALSE(form_.Visible());
  ASSERT_FALSE(sent.empty());
  EXPECT_THAT(sent.back().meaning, testing::StartsWith("Characters on again"));
  EXPECT_EQ(sent.back().verdict, Verdict::kAcknowledged);
}

INSTANTIATE_TEST_SUITE_P(AnswersAfter, LiveWindowTest, testing::Values(0, 15, 40, 120));
INSTANTIATE_TEST_SUITE_P(AnswersAfter, LateAnswersTest, testing::Values(15, 40, 120));

}  // namespace
}  // namespace marlinset
