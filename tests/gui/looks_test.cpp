// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QCheckBox>
#include <QHeaderView>
#include <QHoverEvent>
#include <QMenu>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionMenuItem>
#include <QTableView>
#include <map>

#include "gui/live_sign.h"
#include "gui/widgets/look.h"
#include "tests/gui/form_fixture.h"

namespace marlinset {
namespace {

using LooksTest = MainWindowTest;

QColor Ground(const QAbstractItemModel& model, int row) {
  return model.index(row, 2).data(Qt::BackgroundRole).value<QColor>();
}

TEST_F(LooksTest, TheWindowStandsOnTheScreenWithItsFrame) {
  const MainWindow window(form_);
  form_.SetPlace({.left = 90, .top = 90, .width = 150000, .height = 150000});
  form_.SetVisible(true);
  QCoreApplication::processEvents();
  ASSERT_NE(window.frameGeometry(), window.geometry()) << "the test needs a frame";
  EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()));
  EXPECT_EQ(form_.Place().height, window.height() * 15);
}

TEST_F(LooksTest, TheWindowTableIsReadRowByRow) {
  MainWindow window(form_);
  Open(window, &FrmStart::fWindows);
  window.resize(2560, 1300);
  form_.lName(1).SetCaption("Video Timecode");  // rows come before their names
  QCoreApplication::processEvents();
  QWidget& box = Widget(window, "chOnOff(1)");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Name), "Video Timecode, On/Off");
  const int gap = box.mapTo(&window, QPoint()).x() - Widget(window, "lName(1)").mapTo(&window, QPoint()).x();
  EXPECT_LT(gap, FiguresWidth(window, 40)) << "a name and its boxes in one glance";
  for (const char* head : {"bName", "bOn", "bHor"}) EXPECT_NE(Widget(window, head).toolTip(), "") << head;

  // A quick pointer during a wait for the unit: it has entered two rows and left neither.
  const auto rowOf = [&](const char* name) { return Widget(window, name).parentWidget()->parentWidget(); };
  for (QWidget* row : {rowOf("lName(1)"), rowOf("lName(2)")}) {
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QHoverEvent hover(QEvent::HoverEnter, QPointF(1, 1), QPointF(1, 1), QPointF(-1, -1));
    QApplication::sendEvent(row, &enter);
    QApplication::sendEvent(row, &hover);
  }
  const auto tint = [](QWidget* row) { return row->grab().toImage().pixelColor(1, 1); };
  EXPECT_NE(tint(rowOf("lName(1)")), tint(rowOf("lName(2)"))) << "one row is tinted";
  box.setFocus(Qt::MouseFocusReason);
  const QImage focused = box.grab().toImage();
  for (const int x : {0, 1}) {
    EXPECT_GE(Contrast(focused.pixelColor(x, focused.height() / 2), window.palette().color(QPalette::Base)),
              3)
        << "focus without any key";
  }
}

TEST_F(LooksTest, InteractiveModeSaysWhatIsLive) {
  std::string device = "/dev/ttyUSB";
  MainWindow window(form_, {.deviceName = [&](int port) { return device + std::to_string(port); },
                            .portOpen = [] { return true; }});
  Open(window, &FrmStart::fCodes);
  const auto& sign = dynamic_cast<LiveSign&>(Widget(window, "LiveSign"));
  EXPECT_FALSE(sign.isVisible());
  form_.StatBar(FrmStart::kModelPanel).SetText("HD7340Q");
  form_.mnuInter.SetChecked(true);
  form_.StatBar(FrmStart::kModelPanel).SetText("File Evening Loaded");
  EXPECT_TRUE(sign.isVisible());
  EXPECT_EQ(sign.Unit(), "HD7340Q, Com 1 (ttyUSB1)");
  EXPECT_GE(Contrast(LiveSign::Ground(), LiveSign::Ink()), 4.5);

  EXPECT_TRUE(Widget<QAction>(window, "mnuCom1").text().endsWith("ttyUSB1   (open)"));
  const QAction& other = Widget<QAction>(window, "mnuCom2");
  EXPECT_FALSE(other.text().contains("open"));
  device = "/dev/a_b";
  emit dynamic_cast<QMenu&>(*other.parent()).aboutToShow();
  EXPECT_TRUE(other.text().contains("a_b2")) << "an adapter that came since, and no mnemonic of it";
}

TEST_F(LooksTest, ASendShowsWhereItIsAndLeavesTheListWhereItWas) {
  for (int row = 3; row < 100; ++row) {
    form_.ForParameterRow([row](auto& array) { array.Load(row).SetVisible(true); });
  }
  MainWindow window(form_);
  Open(window, &FrmStart::fParameters);
  auto& table = Widget<QTableView>(window, "pParIn");
  QScrollBar& bar = *table.verticalScrollBar();
  const auto send = [&](const std::function<void()>& meanwhile) {
    bar.setValue(30);
    form_.bSConfig.SetEnabled(false);
    for (const int row : {1, 2}) form_.lDesc(row).SetBackColor(kYellow);
    EXPECT_EQ(Ground(*table.model(), 1), MarkColor());
    EXPECT_NE(Ground(*table.model(), 0), MarkColor()) << "that one has gone";
    meanwhile();
    for (const int row : {1, 2}) form_.lDesc(row).SetBackColor(kWhite);
    form_.bSConfig.SetEnabled(true);
    EXPECT_FALSE(Ground(*table.model(), 1).isValid());
    return bar.value();
  };
  EXPECT_EQ(send([&] { EXPECT_LT(bar.value(), 30); }), 30);
  EXPECT_EQ(send([&] { bar.triggerAction(QAbstractSlider::SliderToMaximum); }), bar.maximum());
  for (const std::function<void()>& hand :
       {std::function<void()>([&] { QTest::mouseClick(table.viewport(), Qt::LeftButton); }),
        std::function<void()>([&] { QTest::keyClick(&table, Qt::Key_Down); }), std::function<void()>([&] {
          QTest::mouseClick(table.horizontalHeader()->viewport(), Qt::LeftButton);
        }),
        std::function<void()>([&] { table.edit(table.model()->index(1, 3)); })}) {
    int place = 0;
    const int left = send([&] {
      hand();
      place = bar.value();
      form_.lDesc(99).SetBackColor(kYellow);
      EXPECT_EQ(bar.value(), place) << "the list runs away under the operator's hand";
      form_.lDesc(99).SetBackColor(kWhite);
    });
    EXPECT_EQ(left, place);
  }
}

TEST_F(LooksTest, ASendLeavesTheWindowsUnderTheOperatorsHand) {
  for (int row = 3; row < 60; ++row) {
    form_.ForWindowRow([row](auto& array) { array.Load(row).SetVisible(true); });
  }
  MainWindow window(form_);
  Open(window, &FrmStart::fWindows);
  const QScrollBar& bar = *Widget<QScrollArea>(window, "pWinOut").verticalScrollBar();
  form_.bSConfig.SetEnabled(false);
  form_.lName(40).SetBackColor(kYellow);
  const int place = bar.value();
  EXPECT_GT(place, 0);
  QTest::mouseClick(&Widget(window, "chField(40)"), Qt::LeftButton);
  form_.lName(1).SetBackColor(kYellow);
  form_.bSConfig.SetEnabled(true);
  EXPECT_EQ(bar.value(), place);
}

TEST_F(LooksTest, TheByteLogTellsTheDirectionAndForgetsNothingOfIt) {
  FrameSignal sent;
  MainWindow window(form_, {.frameSent = &sent});
  const std::uint8_t frame[] = {2, 3, 15, 0, 0x35, 0xB9};
  sent.Emit(frame);  // the log is not shown yet
  form_.tInput.SetVisible(true);
  sent.Emit(frame);
  for (const char* text : {"4,", "4,2,", "", "F,"}) form_.tInput.SetText(text);
  sent.Emit(frame);
  EXPECT_EQ(Widget<QPlainTextEdit>(window, "tInput").toPlainText(),
            "Out  2,3,F,0,35,B9,\nIn   4,2,F,\nOut  2,3,F,0,35,B9,");
  EXPECT_EQ(form_.tInput.Text(), "F,") << "what scripts read stays";
}

}  // namespace
}  // namespace marlinset
