// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/bindings.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <memory>

#include "gui/look.h"
#include "tests/gui/form_fixture.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

class BindingsTest : public FormTest {
 protected:
  QWidget window_;
};

TEST_F(BindingsTest, FlagsToolTipAndNameFollowTheControl) {
  auto* widget = new QPushButton(&window_);
  Bind(*widget, form_.bSConfig).SetDisabledReason("sending");
  EXPECT_EQ(widget->objectName(), "bSConfig");
  EXPECT_EQ(widget->text(), "Send Setup");
  form_.bSConfig.SetToolTip("all of it");
  EXPECT_EQ(widget->toolTip(), "all of it");
  form_.bSConfig.SetEnabled(false);
  EXPECT_FALSE(widget->isEnabled());
  EXPECT_EQ(widget->toolTip(), "sending");
  form_.bSConfig.SetVisible(false);
  EXPECT_TRUE(widget->isHidden());
  form_.bSConfig.SetVisible(true);
  EXPECT_FALSE(widget->isHidden());
  form_.bSConfig.SetCaption("A & B");
  EXPECT_EQ(widget->text(), "A && B") << "an ampersand is a letter, no mnemonic";
}

TEST_F(BindingsTest, AMarkIsReadableAndLeavesTheNeighboursAlone) {
  auto* marked = new QCheckBox(&window_);
  auto* other = new QCheckBox(&window_);
  Bind(*marked, form_.chVITC);
  Bind(*other, form_.chDups);
  const QPalette normal = marked->palette();
  form_.chVITC.SetBackColor(kYellow);
  const QColor ground = marked->palette().color(QPalette::Window);
  EXPECT_GT(ground.red(), 200);
  EXPECT_GT(ground.green(), 200);
  EXPECT_LT(ground.blue(), 100);
  EXPECT_GE(Contrast(ground, marked->palette().color(QPalette::WindowText)), 4.5);
  EXPECT_EQ(other->palette(), normal);
  for (const Color back : {kWhite, kWindowColor}) {
    form_.chVITC.SetBackColor(kYellow);
    form_.chVITC.SetBackColor(back);
    EXPECT_EQ(marked->palette(), normal) << back;
  }
}

TEST_F(BindingsTest, ButtonClicksReachTheControlOnceAndOnlyWhenItTakesThem) {
  int clicks = 0;
  form_.bOpen.OnClick([&] { ++clicks; });
  auto* widget = new QPushButton(&window_);
  Bind(*widget, form_.bOpen);
  widget->click();
  EXPECT_EQ(clicks, 1);
  form_.bOpen.SetEnabled(false);
  widget->click();
  EXPECT_EQ(clicks, 1);
}

TEST_F(BindingsTest, CheckBoxShowsTheModelAlsoWhenTheRuleRefusesTheTick) {
  auto* widget = new QCheckBox(&window_);
  Bind(*widget, form_.chDups);
  int clicks = 0;
  form_.chDups.OnClick([&] { ++clicks; });
  form_.chDups.SetValue(1);
  EXPECT_TRUE(widget->isChecked());
  EXPECT_EQ(clicks, 1) << "painting the tick is no second click";
  QTest::keyClick(widget, Qt::Key_Space);
  EXPECT_EQ(form_.chDups.Value(), 0);
  form_.chDups.OnClick([&] { form_.chDups.SetValue(0); });
  widget->click();
  EXPECT_EQ(form_.chDups.Value(), 0);
  EXPECT_FALSE(widget->isChecked());
}

TEST_F(BindingsTest, OptionsFollowTheirChoice) {
  std::vector<QRadioButton*> widgets;
  for (const int i : form_.oVITC.Indices()) {
    widgets.push_back(new QRadioButton(&window_));
    Bind(*widgets.back(), form_.oVITC(i));
  }
  std::vector<int> clicked;
  form_.oVITC.OnClick([&](int index) { clicked.push_back(index); });
  const auto ticks = [&] {
    return std::vector<bool>{widgets[0]->isChecked(), widgets[1]->isChecked(), widgets[2]->isChecked()};
  };
  EXPECT_THAT(ticks(), ElementsAre(true, false, false));
  widgets[2]->click();
  EXPECT_EQ(form_.vitcModes.Selected(), 2);
  form_.oVITC(1).SetValue(true);
  EXPECT_THAT(ticks(), ElementsAre(false, true, false));
  widgets[1]->click();
  form_.oVITC(1).SetValue(false);
  EXPECT_THAT(ticks(), ElementsAre(false, false, false)) << "none is a state, too";
  EXPECT_THAT(clicked, ElementsAre(2, 1));
}

TEST_F(BindingsTest, MenuEntryTicksWhatTheModelTicks) {
  QMenu menu;
  QAction* action = menu.addAction(QString());
  action->setCheckable(true);
  std::string device = "/dev/a_b";
  Bind(*action, form_.mnuCom2, '2', [&] { return QString::fromStdString(' ' + device); });
  EXPECT_EQ(action->text(), "Com &2 /dev/a_b");
  int clicks = 0;
  form_.mnuCom2.OnClick([&] { ++clicks; });
  action->trigger();
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(action->isChecked()) << "the handler did not tick it";
  form_.mnuCom2.SetChecked(true);
  EXPECT_TRUE(action->isChecked());
  device = "/dev/c";
  emit menu.aboutToShow();
  EXPECT_EQ(action->text(), "Com &2 /dev/c");
  form_.mnuCom2.SetEnabled(false);
  EXPECT_FALSE(action->isEnabled());
}

TEST_F(BindingsTest, EachKeystrokeIsAChangeAndTheCursorStays) {
  auto* widget = new QLineEdit(&window_);
  Bind(*widget, form_.tWinMess);
  std::vector<std::string> texts;
  form_.tWinMess.OnChange([&] { texts.push_back(form_.tWinMess.Text()); });
  QTest::keyClicks(widget, "AC");
  widget->setCursorPosition(1);
  QTest::keyClicks(widget, "B");
  EXPECT_THAT(texts, ElementsAre("A", "AC", "ABC"));
  form_.tWinMess.SetText("abc");
  EXPECT_EQ(widget->text(), "abc");
  EXPECT_EQ(widget->cursorPosition(), 2);
}

TEST_F(BindingsTest, LogGrowsShrinksAndTakesNoKeys) {
  auto* widget = new QPlainTextEdit(&window_);
  Bind(*widget, form_.tInput);
  EXPECT_TRUE(widget->isHidden());
  for (const char* text : {"2,", "2,3,F,", "", "4,"}) {
    form_.tInput.SetText(text);
    EXPECT_EQ(widget->toPlainText(), text);
  }
  QTest::keyClicks(widget, "x");
  EXPECT_EQ(form_.tInput.Text(), "4,");
}

TEST_F(BindingsTest, HoverAndLeaveReachTheControl) {
  auto* label = new QLabel(&window_);
  Bind(*label, form_.lName(0));
  std::vector<int> hovered;
  int onSheet = 0;
  form_.lName.OnMouseMove([&](int index) { hovered.push_back(index); });
  form_.pWinIn.OnMouseMove([&] { ++onSheet; });
  auto* sheet = new Binding(window_, form_.pWinIn);
  sheet->Show();
  QMouseEvent move(QEvent::MouseMove, QPointF(1, 1), QPointF(1, 1), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QApplication::sendEvent(label, &move);
  EXPECT_THAT(hovered, testing::Contains(0));
  EXPECT_EQ(onSheet, 0) << "the sheet below is another surface";
}

TEST_F(BindingsTest, AWidgetOutlivesItsControlAndStaysDeaf) {
  form_.chOnOff.Load(1).SetVisible(true);
  auto* row = new QWidget(&window_);
  auto* widget = new QCheckBox(row);
  Bind(*widget, form_.chOnOff(1));
  form_.chOnOff.Unloading.Connect([&](int) { Binding::Retire(*row); });
  const QPointer<QCheckBox> alive(widget);
  form_.chOnOff.Unload(1);
  ASSERT_TRUE(alive) << "it may stand in the middle of its own click";
  widget->click();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(alive);
}

TEST_F(BindingsTest, AControlOutlivesItsWidget) {
  auto widget = std::make_unique<QCheckBox>();
  Bind(*widget, form_.chSync);
  widget.reset();
  form_.chSync.SetValue(1);
  EXPECT_EQ(form_.chSync.Value(), 1);
}

}  // namespace
}  // namespace marlinset
