// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <set>

#include "gui/buttons.h"
#include "gui/fields.h"
#include "gui/indicator.h"
#include "gui/look.h"
#include "gui/main_window.h"
#include "gui/qt_dialogs.h"
#include "gui/status_bar.h"
#include "gui/window_table.h"
#include "tests/gui/form_fixture.h"

namespace marlinset {
namespace {

class WindowTest : public FormTest {
 protected:
  void LoadWindowRow(int index) {
    form_.ForWindowRow([index](auto& array) { array.Load(index).SetVisible(true); });
    form_.lName(index).SetCaption("Window " + std::to_string(index));
    form_.lName(index).SetVisible(false);
  }
  void LoadParameterRow(int index, bool visible) {
    form_.lClass.Load(index).SetVisible(visible);
    form_.lClass(index).SetCaption("2");
    form_.lParam.Load(index).SetCaption(std::to_string(index));
    form_.lDesc.Load(index).SetCaption("Gain");
    form_.tVal.Load(index).SetText("7");
    form_.udVal.Load(index);
  }
  static QImage Picture(QWidget& widget) { return widget.grab().toImage(); }
};

TEST_F(WindowTest, TheIndicatorTellsItsStatesApartWithoutColour) {
  Indicator indicator(form_, nullptr);
  std::set<std::vector<bool>> shapes;
  const auto shape = [&] {
    const QImage picture = Picture(indicator).convertToFormat(QImage::Format_ARGB32);
    std::vector<bool> ink;
    const QRgb ground = picture.pixel(0, 0);
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) ink.push_back(picture.pixel(x, y) == ground);
    }
    return ink;
  };
  const std::pair<Color, Indicator::State> states[] = {{kRed, Indicator::State::kClosed},
                                                       {kGreen, Indicator::State::kTraffic},
                                                       {kYellow, Indicator::State::kWaiting}};
  for (const auto& [color, state] : states) {
    form_.pComBut.SetBackColor(color);
    EXPECT_EQ(indicator.Shown(), state);
    shapes.insert(shape());
  }
  EXPECT_EQ(shapes.size(), 3U);
  EXPECT_FALSE(indicator.Heartbeat());
  std::set<QByteArray> beats;
  for (const int i : form_.Image1.Indices()) {
    form_.HideImages();
    form_.Image1(i).SetVisible(true);
    EXPECT_EQ(indicator.Heartbeat(), i);
    const QImage picture = Picture(indicator);
    beats.insert(QByteArray(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes()));
  }
  EXPECT_EQ(beats.size(), 5U) << "each frame looks different";
  EXPECT_TRUE(indicator.toolTip().contains("Interactive Mode Enabled"));
}

TEST_F(WindowTest, StatusTextsAreCutButWholeInTheToolTip) {
  StatusBarView bar(form_, nullptr);
  bar.resize(400, bar.sizeHint().height());
  auto& third = Widget<StatusPanelView>(bar, "StatBar(3)");
  bar.show();
  QCoreApplication::processEvents();
  const int width = third.width();
  const QString whole = "Video Standard from box changed while nobody was looking";
  form_.StatBar(3).SetText(whole.toStdString());
  form_.ShowVideoPicture(1);
  EXPECT_EQ(third.ReadableText().back(), QChar(0x2026));
  EXPECT_EQ(third.toolTip(), whole + "\nNo Video Present");
  EXPECT_EQ(third.Picture(), VideoPicture::kNone);
  QCoreApplication::processEvents();
  EXPECT_EQ(third.width(), width) << "a long text moves no neighbour";
  form_.StatBar(3).SetText("Ack In");
  EXPECT_EQ(third.ReadableText(), "Ack In");
}

TEST_F(WindowTest, ShowsTheVisiblePanelAndComesUpWithTheForm) {
  form_.oView.OnClick([this](int index) {
    Frame* const frames[] = {&form_.fCodes,      &form_.fOutputs, &form_.fWindows,
                             &form_.fParameters, &form_.fOptions, &form_.fDownConverter};
    for (Frame* frame : frames) frame->SetVisible(false);
    frames[index]->SetVisible(true);
  });
  form_.oView(4).SetVisible(false);
  bool mayClose = false;
  form_.mnuExit.OnClick([&] { form_.SetVisible(!mayClose); });
  MainWindow window(form_);
  EXPECT_FALSE(window.isVisible());
  form_.SetVisible(true);
  form_.SetCaption("7340 Marlinset - Stage 4");
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.windowTitle(), "7340 Marlinset - Stage 4");
  EXPECT_FALSE(Widget<SegmentButton>(window, "oView(4)").isVisible());
  const std::pair<const char*, const char*> panels[] = {{"oView(1)", "comTB(1)"},
                                                        {"oView(2)", "ComWin(3)"},
                                                        {"oView(3)", "pParIn"},
                                                        {"oView(5)", "ComDownConv(0)"},
                                                        {"oView(0)", "ComUB(0)"}};
  for (const auto& [view, shown] : panels) {
    Widget<SegmentButton>(window, view).click();
    for (const auto& [otherView, other] : panels) {
      EXPECT_EQ(Widget<QWidget>(window, other).isVisible(), view == otherView) << view << ' ' << other;
    }
  }
  EXPECT_FALSE(window.close());
  EXPECT_TRUE(window.isVisible());
  mayClose = true;
  EXPECT_TRUE(window.close());
}

/// A box that closes while only the splash stands must not take the program with it; and a window that no
/// settings have placed, because the start failed, is remembered where it stands.
TEST_F(WindowTest, EndsTheProgramOnlyWithItsForm) {
  const MainWindow window(form_);
  constexpr int kGoesOn = 7;
  QCoreApplication::processEvents();  // a form that went in another test has asked for its end
  QTimer::singleShot(0, [&] {
    QMessageBox box;
    QTimer::singleShot(0, &box, &QDialog::reject);
    box.exec();
    QTimer::singleShot(0, [] { QCoreApplication::exit(kGoesOn); });
  });
  EXPECT_EQ(QApplication::exec(), kGoesOn);
  form_.SetVisible(true);
  EXPECT_EQ(form_.Place().width, window.width() * 15);
  QTimer::singleShot(0, [&] { form_.SetVisible(false); });
  EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(WindowTest, WidgetsCarryTheNamesOfTheirControls) {
  const MainWindow window(form_);
  for (const Control* control : form_.Controls()) {
    switch (control->Kind()) {
      case ControlKind::kButton:
      case ControlKind::kCheckBox:
      case ControlKind::kComboBox:
      case ControlKind::kOptionButton:
      case ControlKind::kSpin:
      case ControlKind::kStatusPanel:
      case ControlKind::kTextBox:
        break;
      default:
        continue;
    }
    const std::string name = control->FullName();
    // The parameter list is one painted table; its heads and cells are no widgets until one is edited.
    const std::set<std::string> painted = {"bClass", "bParam", "bDesc", "bValue", "tVal(0)", "udVal(0)"};
    EXPECT_EQ(window.findChildren<QWidget*>(QString::fromStdString(name)).size(),
              painted.contains(name) ? 0 : 1)
        << name;
  }
  EXPECT_NE(window.findChild<QAction*>("mnuStat"), nullptr);
}

TEST_F(WindowTest, WindowRowsComeAndGoWithTheirControls) {
  WindowTable table(form_, nullptr);
  LoadWindowRow(2);
  LoadWindowRow(1);
  ASSERT_NE(table.Row(1), nullptr);
  EXPECT_TRUE(table.Row(1)->isHidden());
  form_.lName(1).SetVisible(true);
  form_.lName(2).SetVisible(true);
  table.resize(800, 400);
  table.show();
  EXPECT_LT(table.Row(1)->y(), table.Row(2)->y()) << "in the order of the windows, whatever came first";
  EXPECT_EQ(table.Row(1)->height(), table.Row(2)->height());
  EXPECT_GE(table.minimumSizeHint().height(), 6 * table.Row(1)->height()) << "also in a small window";
  Widget<QCheckBox>(table, "chOnOff(2)").click();
  EXPECT_TRUE(form_.chOnOff(2).On());
  form_.chOnOff.Unload(2);
  EXPECT_EQ(table.Row(2), nullptr);
  form_.udHor(2).SetValue(3);
  form_.lName(2).SetVisible(false);
  EXPECT_NE(table.Row(1), nullptr);
}

/// Whatever the pointer is over belongs to exactly one surface of the model.
TEST_F(WindowTest, ThePointerReachesTheSurfaceItIsOver) {
  std::vector<std::string> over;
  const auto note = [&](EventSource& surface, const std::string& name) {
    surface.OnMouseMove([&over, name](int index) {
      over.push_back(index == kNoIndex ? name : name + std::to_string(index));
    });
  };
  note(form_, "form");
  note(form_.fWindows, "fWindows");
  note(form_.fAttribs, "fAttribs");
  note(form_.bHor, "bHor");
  note(form_.pWinIn, "pWinIn");
  note(form_.pWinOut, "pWinOut");
  note(form_.lName, "lName");
  note(form_.chField, "chField");
  note(form_.udHor, "udHor");
  form_.fWindows.SetVisible(true);
  MainWindow window(form_);
  LoadWindowRow(1);
  form_.lName(1).SetVisible(true);
  form_.chField(1).SetEnabled(false);
  for (Frame* other : {&form_.fCodes, &form_.fOutputs, &form_.fParameters, &form_.fDownConverter}) {
    other->SetVisible(false);
  }
  window.resize(1300, 800);
  form_.SetVisible(true);
  window.show();
  QCoreApplication::processEvents();
  auto& field = Widget<QCheckBox>(window, "chField(1)");
  auto& horizontal = Widget<QWidget>(window, "udHor(1)");
  auto& name = Widget<QWidget>(window, "lName(1)");
  auto& style = Widget<QWidget>(window, "ComWin(2)");
  const std::pair<QWidget*, const char*> places[] = {
      {&field, "chField1"},
      {field.parentWidget(), "chField1"},
      {horizontal.findChild<QLineEdit*>(), "udHor1"},
      {horizontal.parentWidget(), "udHor1"},
      {&name, "lName1"},
      {name.parentWidget(), "lName1"},
      {&Widget<QWidget>(window, "bHor"), "bHor"},
      {&Widget<QWidget>(window, "pWinIn"), "pWinIn"},
      {Widget<QWidget>(window, "pWinIn").parentWidget(), "pWinOut"},
      {style.parentWidget(), "fAttribs"},
      {style.parentWidget()->parentWidget(), "fWindows"},
      {Widget<QWidget>(window, "fWindows").parentWidget(), "form"},
      {&window, "form"}};
  for (const auto& [place, surface] : places) {
    SCOPED_TRACE(place->objectName().toStdString() + " for " + surface);
    over.clear();
    QMouseEvent move(QEvent::MouseMove, QPointF(1, 1), place->mapToGlobal(QPointF(1, 1)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(place, &move);
    EXPECT_THAT(over, testing::ElementsAre(surface));
  }
  std::vector<int> left;
  form_.chOnOff.OnLostFocus([&](int index) { left.push_back(index); });
  auto& box = Widget<QCheckBox>(window, "chOnOff(1)");
  for (const Qt::FocusReason reason :
       {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason, Qt::TabFocusReason}) {
    QFocusEvent out(QEvent::FocusOut, reason);
    QApplication::sendEvent(&box, &out);
  }
  EXPECT_THAT(left, testing::ElementsAre(1)) << "a box or another program does not count";
}

TEST_F(WindowTest, TheParameterTableShowsVisibleRowsAndMarks) {
  const MainWindow window(form_);
  auto& table = Widget<QTableView>(window, "pParIn");
  for (const int i : {1, 2, 3}) LoadParameterRow(i, i != 2);
  QCoreApplication::processEvents();
  const QAbstractItemModel& model = *table.model();
  ASSERT_EQ(model.rowCount(), 3);
  const QModelIndex description = model.index(2, 2);
  EXPECT_EQ(model.index(2, 1).data(), "3");
  form_.tVal(3).SetText("FF");
  EXPECT_EQ(model.index(2, 3).data(), "FF");
  EXPECT_FALSE(description.data(Qt::BackgroundRole).isValid());
  form_.lDesc(3).SetBackColor(kYellow);
  EXPECT_GE(Contrast(description.data(Qt::BackgroundRole).value<QColor>(),
                     description.data(Qt::ForegroundRole).value<QColor>()),
            4.5);
  form_.tVal(1).SetText("5");
  form_.udVal(1).SetVisible(true);
  table.setCurrentIndex(model.index(1, 0));
  QTest::keyClick(&table, Qt::Key_F2);
  auto* field = table.findChild<SpinField*>();
  ASSERT_TRUE(field) << "a row is edited from any of its cells";
  QTest::keyClicks(field, "12");
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_EQ(form_.udVal(1).Value(), 12) << "typing replaces the value";
  form_.bValue.SetCaption("Value (Hex)");
  EXPECT_EQ(model.headerData(3, Qt::Horizontal, Qt::DisplayRole), "Value (Hex)");
  form_.lDesc.Unload(3);
  EXPECT_FALSE(description.data().isValid()) << "a row that is gone is blank until the table is in order";
  QCoreApplication::processEvents();
  EXPECT_EQ(model.rowCount(), 2);
}

TEST_F(WindowTest, TheMainActionIsReadableOnEveryAccent) {
  for (const QColor& accent : {QColor(48, 140, 198), QColor(255, 220, 0), QColor(20, 20, 20)}) {
    for (const QColor& text : {QColor(Qt::white), QColor(Qt::black)}) {
      QPalette palette;
      palette.setColor(QPalette::Highlight, accent);
      palette.setColor(QPalette::HighlightedText, text);
      EXPECT_GE(Contrast(Accent(palette), text), 4.5) << accent.name().toStdString();
    }
  }
}

/// Presses a key in the box that opens next and tells what stood there.
struct BoxWatcher {
  explicit BoxWatcher(Qt::Key key) {
    QTimer::singleShot(0, [this, key] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box) return;
      text = box->text();
      remedy = box->informativeText();
      QTest::keyClick(box, key);
    });
  }
  QString text;
  QString remedy;
};

TEST_F(WindowTest, BoxesAnswerSafelyByEscAndByDefault) {
  QtDialogs dialogs;
  const std::tuple<BoxButtons, Qt::Key, BoxAnswer> cases[] = {
      {BoxButtons::kYesNo, Qt::Key_Escape, BoxAnswer::kNo},
      {BoxButtons::kYesNo, Qt::Key_Return, BoxAnswer::kNo},
      {BoxButtons::kOkCancel, Qt::Key_Escape, BoxAnswer::kCancel},
      {BoxButtons::kOkCancel, Qt::Key_Return, BoxAnswer::kCancel},
      {BoxButtons::kOk, Qt::Key_Escape, BoxAnswer::kOk},
  };
  for (const auto& [buttons, key, answer] : cases) {
    const BoxWatcher watcher(key);
    EXPECT_EQ(dialogs.Show({.text = "Char <b>On</b> error", .buttons = buttons, .remedy = "Look."}), answer);
    EXPECT_EQ(watcher.text, "Char <b>On</b> error");
    EXPECT_EQ(watcher.remedy, "Look.");
  }
}

}  // namespace
}  // namespace marlinset
