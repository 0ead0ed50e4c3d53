// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/widget_bindings.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

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

/// An operator's tick shows at once but lasts only if the rule accepts it; the tool can tick anything.
TEST_F(BindingsTest, ATickIsTheModelsWord) {
  QCheckBox box;
  Bind(box, form_.chDups);
  QRadioButton option(&window_);
  Bind(option, form_.oVITC(1));
  QRadioButton other(&window_);
  Bind(other, form_.oVITC(2));
  QAction entry;
  entry.setCheckable(true);
  Bind(entry, form_.mnuCom2);
  bool refuses = true;
  form_.chDups.OnClick([&] {
    if (refuses) form_.chDups.SetValue(0);
  });
  form_.oVITC.OnClick([&](int) {
    if (refuses) form_.oVITC(2).SetValue(true);
  });
  form_.mnuCom2.OnClick([&] { form_.mnuCom2.SetEnabled(false); });
  option.click();
  box.click();
  entry.trigger();
  form_.chDups.SetBackColor(kYellow);
  EXPECT_TRUE(box.isChecked() && option.isChecked() && entry.isEnabled());
  Settle();
  EXPECT_FALSE(box.isChecked() || option.isChecked() || entry.isChecked() || entry.isEnabled());
  EXPECT_TRUE(other.isChecked());
  refuses = false;
  for (const bool on : {true, false}) {
    form_.chDups.SetValue(on ? 1 : 0);
    form_.oVITC(1).SetValue(on);
    form_.mnuCom2.SetChecked(on);
    EXPECT_TRUE(box.isChecked() == on && option.isChecked() == on && entry.isChecked() == on);
    EXPECT_FALSE(other.isChecked()) << "none of a choice is a state, too";
  }
}

TEST_F(BindingsTest, ARuleThatWritesTheTextLeavesTheCursorAndAListAloneSelectsNothing) {
  QLineEdit widget;
  Bind(widget, form_.tWinMess);
  QTest::keyClicks(&widget, "ABC");
  widget.setCursorPosition(1);
  Settle();
  form_.tWinMess.SetText("abc");
  EXPECT_EQ(widget.text(), "abc");
  EXPECT_EQ(widget.cursorPosition(), 1);
  const ComboField combo(form_.comVS, 10, &window_);
  form_.comVS.AddItem("525i/60");
  EXPECT_EQ(combo.currentIndex(), -1);
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

struct FieldsTest : FormTest {
  FieldsTest() {
    // Picture lines count downwards, so up leads to the lower number.
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

  std::vector<int> lines_;
  SpinField spin_{form_.UpDown1, form_.tLineNumber(0), &window_};
};

TEST_F(FieldsTest, StepsStopAtTheLimits) {
  spin_.setFocus();
  QTest::keyClick(&spin_, Qt::Key_Down);
  EXPECT_EQ(spin_.text(), "16") << "down goes to Min, the highest line";
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Up}) QTest::keyClick(&spin_, key);
  EXPECT_EQ(spin_.text(), "10") << "seen before it is done";
  Settle();
  EXPECT_THAT(lines_, ElementsAre(16, 15, 14, 13, 12, 11, 10));
}

TEST_F(FieldsTest, ATypedNumberCountsOnceItIsComplete) {
  Enter(spin_, "1x", Qt::Key_8);
  form_.tLineNumber(0).SetBackColor(kYellow);
  EXPECT_EQ(spin_.text(), "18") << "a mark leaves half a number alone";
  Leave(spin_, {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason});
  Settle();
  EXPECT_THAT(lines_, ElementsAre()) << "a box came up in the middle of the number";
  QTest::keyClick(&spin_, Qt::Key_Return);
  Enter(spin_, "12", Qt::Key_Escape);
  EXPECT_EQ(spin_.text(), "18");
  QTest::keyClick(&spin_, Qt::Key_Return);
  Enter(spin_, "99", Qt::Key_Return);
  Settle();
  EXPECT_THAT(lines_, ElementsAre(18, 20)) << "kept inside the limits";
  EXPECT_EQ(spin_.text(), "20");

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
