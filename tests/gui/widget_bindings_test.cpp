// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/widget_bindings.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QWheelEvent>

#include "gui/widgets/fields.h"
#include "gui/widgets/look.h"
#include "tests/gui/form_fixture.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using BindingsTest = FormTest;

TEST_F(BindingsTest, AButtonShowsItsControlAndClicksItWhileItTakesClicks) {
  QPushButton widget;
  Bind(widget, form_.bSConfig).SetDisabledReason("sending");
  int clicks = 0;
  form_.bSConfig.OnClick([&] { ++clicks; });
  form_.bSConfig.SetCaption("A & B");
  form_.bSConfig.SetToolTip("all of it");
  EXPECT_EQ(widget.text(), "A && B") << "an ampersand is a letter, no mnemonic";
  EXPECT_EQ(widget.toolTip(), "all of it");
  widget.click();
  widget.click();
  EXPECT_EQ(clicks, 0) << "a rule may wait for the unit, and no widget stands in the middle of that";
  Settle();
  form_.bSConfig.SetEnabled(false);
  widget.click();
  Settle();
  EXPECT_EQ(clicks, 1) << "two presses of a button that has not begun are one";
  EXPECT_EQ(widget.toolTip(), "sending");
  for (const bool visible : {false, true}) {
    form_.bSConfig.SetVisible(visible);
    EXPECT_EQ(widget.isHidden(), !visible);
  }
}

TEST_F(BindingsTest, AMarkIsReadableAndGoesAgain) {
  QCheckBox widget;
  Bind(widget, form_.chVITC);
  const QPalette normal = widget.palette();
  for (const Color back : {kWhite, kWindowColor}) {
    form_.chVITC.SetBackColor(kYellow);
    const QColor ground = widget.palette().color(QPalette::Window);
    EXPECT_TRUE(ground.red() > 200 && ground.green() > 200 && ground.blue() < 100) << "yellow";
    EXPECT_GE(Contrast(ground, widget.palette().color(QPalette::WindowText)), 4.5);
    form_.chVITC.SetBackColor(back);
    EXPECT_EQ(widget.palette(), normal);
  }
}

TEST_F(BindingsTest, ACheckBoxShowsTheModelAlsoWhenTheRuleRefusesTheTick) {
  QCheckBox widget;
  Bind(widget, form_.chDups);
  int clicks = 0;
  form_.chDups.OnClick([&] { ++clicks; });
  form_.chDups.SetValue(1);
  EXPECT_TRUE(widget.isChecked());
  EXPECT_EQ(clicks, 1) << "painting the tick is no second click";
  QTest::keyClick(&widget, Qt::Key_Space);
  form_.chDups.SetBackColor(kYellow);
  EXPECT_FALSE(widget.isChecked()) << "what the operator did is seen at once";
  Settle();
  EXPECT_EQ(form_.chDups.Value(), 0);
  form_.chDups.OnClick([&] { form_.chDups.SetValue(0); });
  widget.click();
  Settle();
  EXPECT_FALSE(widget.isChecked());
}

TEST_F(BindingsTest, OptionsFollowTheirChoice) {
  std::vector<QRadioButton*> widgets;
  for (const int i : form_.oVITC.Indices()) {
    widgets.push_back(new QRadioButton(&window_));
    Bind(*widgets.back(), form_.oVITC(i));
  }
  widgets[2]->click();
  Settle();
  EXPECT_EQ(form_.vitcModes.Selected(), 2);
  for (const bool chosen : {true, false}) {
    form_.oVITC(1).SetValue(chosen);
    EXPECT_EQ(widgets[1]->isChecked(), chosen) << "none is a state, too";
    EXPECT_FALSE(widgets[2]->isChecked());
  }
}

TEST_F(BindingsTest, AMenuEntryTicksWhatTheModelTicks) {
  QMenu menu;
  QAction* action = menu.addAction(QString());
  action->setCheckable(true);
  std::string device = "/dev/a_b";
  Bind(*action, form_.mnuCom2, [&](const MenuItem& shown, QAction& entry) {
    entry.setText(QString::fromStdString(shown.Caption() + ' ' + device));
  });
  EXPECT_EQ(action->text(), "Com 2 /dev/a_b");
  int clicks = 0;
  form_.mnuCom2.OnClick([&] { ++clicks; });
  action->trigger();
  Settle();
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(action->isChecked()) << "the handler did not tick it";
  form_.mnuCom2.SetChecked(true);
  form_.mnuCom2.SetEnabled(false);
  EXPECT_TRUE(action->isChecked());
  EXPECT_FALSE(action->isEnabled());
  device = "/dev/c";
  emit menu.aboutToShow();
  EXPECT_EQ(action->text(), "Com 2 /dev/c");
}

TEST_F(BindingsTest, EachKeystrokeIsAChangeAndTheCursorStays) {
  QLineEdit widget;
  Bind(widget, form_.tWinMess);
  std::vector<std::string> texts;
  form_.tWinMess.OnChange([&] { texts.push_back(form_.tWinMess.Text()); });
  QTest::keyClicks(&widget, "AC");
  widget.setCursorPosition(1);
  QTest::keyClicks(&widget, "B");
  Settle();
  EXPECT_THAT(texts, ElementsAre("A", "AC", "ABC"));
  form_.tWinMess.SetText("abc");
  EXPECT_EQ(widget.text(), "abc");
  EXPECT_EQ(widget.cursorPosition(), 2);
}

TEST_F(BindingsTest, WidgetAndControlOutliveEachOther) {
  form_.chOnOff.Load(1).SetVisible(true);
  auto* row = new QWidget(&window_);
  const QPointer<QCheckBox> widget(new QCheckBox(row));
  Bind(*widget, form_.chOnOff(1));
  form_.chOnOff.Unloading.Connect([&](int) { Binding::Retire(*row); });
  form_.chOnOff.Unload(1);
  ASSERT_TRUE(widget) << "it may stand in the middle of its own click";
  widget->click();
  Settle();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(widget);

  Bind(*std::make_unique<QCheckBox>(), form_.chSync);
  form_.chSync.SetValue(1);
}

void TurnWheel(QWidget& widget) {
  QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &wheel);
}

class FieldsTest : public FormTest {
 protected:
  FieldsTest() {
    for (const char* entry : {"NTSC", "PAL", "1080i/60"}) form_.comVS.AddItem(entry);
    form_.comVS.SetListIndex(0);
    form_.comVS.OnClick([this] { chosen_.push_back(form_.comVS.ListIndex()); });
    // The lines of a picture: up goes to the lower number.
    form_.UpDown1.SetMin(20);
    form_.UpDown1.SetMax(10);
    form_.UpDown1.SetValue(15);
    form_.UpDown1.OnMoved(
        [this](int) { form_.tLineNumber(0).SetText(std::to_string(form_.UpDown1.Value())); });
    form_.UpDown1.OnChange([this] { lines_.push_back(form_.UpDown1.Value()); });
    form_.UpDown1.Announce();
    Show(window_);
    lines_.clear();
  }

  std::vector<int> chosen_;
  std::vector<int> lines_;
  ComboField combo_{form_.comVS, 10, &window_};
  SpinField spin_{form_.UpDown1, form_.tLineNumber(0), &window_};
};

TEST_F(FieldsTest, AComboFollowsItsListAndChoosesWithoutStrayKeys) {
  form_.comVS.SetListIndex(2);
  EXPECT_EQ(combo_.currentText(), "1080i/60");
  combo_.setFocus();
  QTest::keyClick(&combo_, Qt::Key_Up);
  QTest::keyClicks(&combo_, "N1");
  Settle();
  EXPECT_EQ(form_.comVS.Text(), "PAL");
  EXPECT_THAT(chosen_, ElementsAre(2, 1)) << "a letter never goes on air";
  form_.comVS.Clear();
  form_.comVS.AddItem("525i/60");
  EXPECT_EQ(combo_.currentIndex(), -1) << "a list alone selects nothing";
  form_.comVS.OperatorType("72");
  EXPECT_EQ(combo_.placeholderText(), "72") << "what a rule let stand is shown though no entry has it";
}

TEST_F(FieldsTest, StepsStopAtTheLimitsAndTheWheelTurnsOnlyWhatHasTheFocus) {
  spin_.setFocus();
  TurnWheel(combo_);
  EXPECT_THAT(chosen_, ElementsAre());
  TurnWheel(spin_);
  EXPECT_EQ(spin_.text(), "16");
  Settle();
  EXPECT_THAT(lines_, ElementsAre(16)) << "down goes to Min, the highest line";
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Up}) QTest::keyClick(&spin_, key);
  EXPECT_EQ(spin_.text(), "10") << "seen before it is done";
  combo_.setFocus();
  TurnWheel(spin_);
  TurnWheel(combo_);
  Settle();
  EXPECT_THAT(lines_, ElementsAre(16, 15, 14, 13, 12, 11, 10));
  EXPECT_THAT(chosen_, ElementsAre(1));
}

TEST_F(FieldsTest, ATypedNumberCountsOnceItIsComplete) {
  Enter(spin_, "1x", Qt::Key_8);
  form_.tLineNumber(0).SetBackColor(kYellow);
  EXPECT_EQ(spin_.text(), "18") << "a mark leaves half a number alone";
  EXPECT_THAT(lines_, ElementsAre());
  QTest::keyClick(&spin_, Qt::Key_Return);
  Settle();
  Enter(spin_, "12", Qt::Key_Escape);
  EXPECT_EQ(spin_.text(), "18");
  QTest::keyClick(&spin_, Qt::Key_Return);
  Enter(spin_, "99", Qt::Key_Return);
  Settle();
  EXPECT_THAT(lines_, ElementsAre(18, 20)) << "kept inside the limits";
  EXPECT_EQ(spin_.text(), "20");
}

TEST_F(FieldsTest, TheEchoHasTheLastWordAndTheRadix) {
  SpinControl& value = form_.udVal(0);
  value.SetMin(-70000);
  value.SetMax(70000);
  SpinField spin(value, form_.tVal(0), &window_);
  spin.SetRadix([] { return 16; });
  form_.tVal(0).SetText("1F");
  spin.show();
  for (const auto& [typed, expected] : {std::pair{"ff", 255}, std::pair{"FFFFFFFE", -2}}) {
    Enter(spin, typed, Qt::Key_Return);
    Settle();
    EXPECT_EQ(value.Value(), expected);
    EXPECT_EQ(spin.text(), "1F") << "no rule wrote another echo";
  }
}

}  // namespace
}  // namespace marlinset
