// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/window/live_window_test.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <algorithm>
#include <functional>

#include "tests/window/studio.h"

namespace marlinset {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

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
    {"list that drops down", 1, [](LiveWindow& desk) { desk.Pick("comTB(1)", 2); },
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

INSTANTIATE_TEST_SUITE_P(AnswersAfter, LiveWindowTest, testing::Values(0, 15, 40, 120));

}  // namespace
}  // namespace marlinset
