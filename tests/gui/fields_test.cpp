// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/fields.h"

#include <gmock/gmock.h>

#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

#include "tests/gui/form_fixture.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

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
  }
  void Show() {
    window_.show();
    window_.activateWindow();
    QCoreApplication::processEvents();
  }

  QWidget window_;
  std::vector<int> chosen_;
  std::vector<int> lines_;
};

TEST_F(FieldsTest, ComboFollowsListAndSelectionWithoutSayingSo) {
  const ComboField combo(form_.comVS, 10, &window_);
  EXPECT_EQ(combo.currentText(), "NTSC");
  form_.comVS.SetListIndex(2);
  EXPECT_EQ(combo.currentText(), "1080i/60");
  form_.comVS.Clear();
  EXPECT_EQ(combo.count(), 0);
  form_.comVS.AddItem("525i/60");
  EXPECT_EQ(combo.currentIndex(), -1) << "a list alone selects nothing";
  form_.comVS.OperatorType("72");
  EXPECT_EQ(combo.placeholderText(), "72") << "what a rule let stand is shown though no entry has it";
  EXPECT_THAT(chosen_, ElementsAre(2));
}

TEST_F(FieldsTest, ChoosingSelectsAndStrayKeysDoNot) {
  ComboField combo(form_.comVS, 10, &window_);
  Show();
  combo.setFocus();
  QTest::keyClick(&combo, Qt::Key_Down);
  EXPECT_EQ(form_.comVS.Text(), "PAL");
  QTest::keyClicks(&combo, "N1");
  EXPECT_EQ(form_.comVS.Text(), "PAL");
  EXPECT_THAT(chosen_, ElementsAre(1));
}

TEST_F(FieldsTest, TheWheelTurnsOnlyWhatHasTheFocus) {
  ComboField combo(form_.comVS, 10, &window_);
  SpinField spin(form_.UpDown1, form_.tLineNumber(0), &window_);
  Show();
  spin.setFocus();
  TurnWheel(combo);
  EXPECT_EQ(form_.comVS.ListIndex(), 0);
  combo.setFocus();
  TurnWheel(spin);
  EXPECT_EQ(form_.UpDown1.Value(), 15);
  TurnWheel(combo);
  EXPECT_EQ(form_.comVS.ListIndex(), 1);
  spin.setFocus();
  TurnWheel(spin);
  EXPECT_EQ(form_.UpDown1.Value(), 16) << "down goes to Min, the highest line";
}

TEST_F(FieldsTest, StepsGoTowardsMaxAndStopAtTheLimits) {
  SpinField spin(form_.UpDown1, form_.tLineNumber(0), &window_);
  Show();
  spin.setFocus();
  QTest::keyClick(&spin, Qt::Key_Up);
  EXPECT_EQ(form_.UpDown1.Value(), 14);
  EXPECT_EQ(spin.text(), "14");
  QTest::keyClick(&spin, Qt::Key_PageUp);
  EXPECT_EQ(form_.UpDown1.Value(), 10);
  lines_.clear();
  QTest::keyClick(&spin, Qt::Key_Up);
  EXPECT_TRUE(lines_.empty());
}

TEST_F(FieldsTest, ATypedNumberCountsOnceItIsComplete) {
  SpinField spin(form_.UpDown1, form_.tLineNumber(0), &window_);
  Show();
  spin.setFocus();
  spin.selectAll();
  QTest::keyClicks(&spin, "1x8");
  EXPECT_TRUE(lines_.empty());
  form_.tLineNumber(0).SetBackColor(kYellow);
  EXPECT_EQ(spin.text(), "18") << "a mark leaves half a number alone";
  QTest::keyClick(&spin, Qt::Key_Return);
  EXPECT_THAT(lines_, ElementsAre(18));
  spin.selectAll();
  QTest::keyClicks(&spin, "12");
  QTest::keyClick(&spin, Qt::Key_Escape);
  EXPECT_EQ(spin.text(), "18");
  QTest::keyClick(&spin, Qt::Key_Return);
  spin.selectAll();
  QTest::keyClicks(&spin, "99");
  QTest::keyClick(&spin, Qt::Key_Return);
  EXPECT_THAT(lines_, ElementsAre(18, 20)) << "kept inside the limits";
  EXPECT_EQ(spin.text(), "20");
}

TEST_F(FieldsTest, TheEchoHasTheLastWordAndTheRadix) {
  SpinControl& value = form_.udVal(0);
  TextBox& echo = form_.tVal(0);
  value.SetMin(-70000);
  value.SetMax(70000);
  SpinField spin(value, echo, &window_);
  spin.SetRadix([] { return 16; });
  echo.SetText("1F");
  EXPECT_EQ(spin.text(), "1F");
  EXPECT_EQ(spin.objectName(), "udVal(0)");
  EXPECT_NE(spin.findChild<QLineEdit*>("tVal(0)"), nullptr);
  Show();
  spin.setFocus();
  for (const auto& [typed, expected] : {std::pair{"ff", 255}, std::pair{"FFFFFFFE", -2}}) {
    spin.selectAll();
    QTest::keyClicks(&spin, typed);
    QTest::keyClick(&spin, Qt::Key_Return);
    EXPECT_EQ(value.Value(), expected);
    EXPECT_EQ(spin.text(), "1F") << "no rule wrote another echo";
  }
  echo.SetEnabled(false);
  EXPECT_FALSE(spin.isEnabled());
}

}  // namespace
}  // namespace marlinset
