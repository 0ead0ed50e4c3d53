// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>
#include <QCheckBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QTableView>
#include <map>
#include <set>

#include "core/parameter_forms.h"
#include "gui/indicator.h"
#include "gui/main_window.h"
#include "gui/parameter_dialogs.h"
#include "gui/qt_dialogs.h"
#include "gui/status_bar.h"
#include "gui/widgets/look.h"
#include "tests/gui/form_fixture.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

const std::set<ControlKind> kKinds = {
    ControlKind::kButton,       ControlKind::kCheckBox, ControlKind::kComboBox,
    ControlKind::kListView,     ControlKind::kMenuItem, ControlKind::kSpin,
    ControlKind::kOptionButton, ControlKind::kTextBox,  ControlKind::kStatusPanel};
// The parameter list is one painted table: its heads and cells are no widgets until one is edited.
const std::set<std::string> kPainted = {"bClass", "bParam", "bDesc", "bValue", "tVal", "udVal"};

/// Every control has one widget, and those that take keys have different spoken names.
void ExpectWidgets(const QWidget& window, const Form& form) {
  std::set<QString> spoken;
  for (const Control* control : form.Controls()) {
    if (!kKinds.contains(control->Kind()) || kPainted.contains(control->Name())) continue;
    SCOPED_TRACE(control->FullName());
    const auto found = window.findChildren<QObject*>(Shown(control->FullName()));
    ASSERT_EQ(found.size(), 1);
    const auto* widget = qobject_cast<QWidget*>(found[0]);
    if (!widget || widget->focusPolicy() == Qt::NoFocus || widget->parent()->inherits("QAbstractSpinBox"))
      continue;
    const QString label = QAccessible::queryAccessibleInterface(found[0])->text(QAccessible::Name);
    EXPECT_TRUE(!label.isEmpty() && spoken.insert(label).second) << label.toStdString();
  }
}

/// No two texts on the screen claim the same letter.
void ExpectMnemonicsApart(const QWidget& window) {
  std::set<QKeySequence> letters;
  const auto claim = [&](const QString& text) {
    const QKeySequence letter = QKeySequence::mnemonic(text);
    EXPECT_TRUE(letter.isEmpty() || letters.insert(letter).second) << text.toStdString();
  };
  for (const auto* bar : window.findChildren<QMenuBar*>()) {
    for (const QAction* action : bar->actions()) claim(action->text());
  }
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->isVisible()) claim(widget->property("text").toString());
  }
}

using WindowTest = MainWindowTest;

TEST_F(WindowTest, EveryControlHasAWidgetANameAndALetterOfItsOwn) {
  MainWindow window(form_);
  ExpectWidgets(window, form_);
  const std::pair<Frame FrmStart::*, const char*> panels[] = {{&FrmStart::fCodes, "ComUB(0)"},
                                                              {&FrmStart::fOutputs, "comTB(1)"},
                                                              {&FrmStart::fWindows, "ComWin(3)"},
                                                              {&FrmStart::fParameters, "pParIn"},
                                                              {&FrmStart::fDownConverter, "ComDownConv(0)"}};
  for (const auto& [panel, control] : panels) {
    Open(window, panel);
    SCOPED_TRACE(control);
    ExpectMnemonicsApart(window);
    for (const auto& [other, otherControl] : panels) {
      EXPECT_EQ(Widget(window, otherControl).isVisible(), other == panel) << otherControl;
    }
  }
  FrmEditParameters edit(guard_);
  FrmDeleteParameter remove(guard_);
  QtDialogs dialogs;
  AddParameterWindows(dialogs, edit, remove);
  for (Form* form : {static_cast<Form*>(&edit), static_cast<Form*>(&remove)}) {
    AtDialog([&] { dialogs.ShowModal(*form); },
             [&](QWidget& dialog) {
               ExpectWidgets(dialog, *form);
               ExpectMnemonicsApart(dialog);
               dialog.close();
             });
  }
}

TEST_F(WindowTest, ComesAndGoesWithTheForm) {
  bool mayClose = false;
  form_.mnuExit.OnClick([&] { form_.SetVisible(!mayClose); });
  MainWindow window(form_);
  EXPECT_FALSE(window.isVisible());
  form_.SetVisible(true);
  form_.SetCaption("7340 Marlinset - Stage 4");
  EXPECT_EQ(window.windowTitle(), "7340 Marlinset - Stage 4[*]");
  for (const bool may : {false, true}) {
    EXPECT_TRUE(window.isVisible());
    mayClose = may;
    window.close();
    Settle();
    EXPECT_EQ(window.isVisible(), !may);
  }
}

/// A box that closes while only the splash is open must not end the program. A window whose start failed
/// has no place from the settings; its form learns where it is.
TEST_F(WindowTest, EndsTheProgramOnlyWithItsForm) {
  const MainWindow window(form_);
  constexpr int kGoesOn = 7;
  QCoreApplication::processEvents();  // a form that went in another test has asked for its end
  QTimer::singleShot(0, [] {
    QMessageBox box;
    AtDialog([&] { box.exec(); }, [](QWidget& dialog) { dialog.close(); });
    QTimer::singleShot(0, [] { QCoreApplication::exit(kGoesOn); });
  });
  EXPECT_EQ(QApplication::exec(), kGoesOn);
  form_.SetVisible(true);
  EXPECT_EQ(form_.Place().width, window.width() * 15);
  QTimer::singleShot(0, [&] { form_.SetVisible(false); });
  EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(WindowTest, IndicatorAndStatusBarTellWhatGoesOn) {
  const Indicator indicator(form_, nullptr);
  const std::map<Color, Indicator::State> states = {{kRed, Indicator::State::kClosed},
                                                    {kGreen, Indicator::State::kTraffic},
                                                    {kYellow, Indicator::State::kWaiting}};
  for (const auto& [color, state] : states) {
    form_.pComBut.SetBackColor(color);
    EXPECT_EQ(indicator.Shown(), state);
  }
  EXPECT_FALSE(indicator.Heartbeat());
  form_.Image1(3).SetVisible(true);
  EXPECT_EQ(indicator.Heartbeat(), 3);

  StatusBarView bar(form_, nullptr);
  bar.resize(400, bar.sizeHint().height());
  Show(bar);
  const auto& panel = Widget<StatusPanelView>(bar, "StatBar(3)");
  form_.StatBar(3).SetText("Video Standard from box changed while nobody was looking");
  form_.ShowVideoPicture(1);
  EXPECT_EQ(panel.ReadableText().back(), QChar(0x2026));
  EXPECT_EQ(panel.toolTip(), "Video Standard from box changed while nobody was looking\nNo Video Present");
}

TEST_F(WindowTest, ThePointerReachesTheSurfaceItIsOver) {
  std::vector<std::string> over;
  const std::pair<EventSource&, std::string> surfaces[] = {
      {form_, "form"},        {form_.pWinOut, "pWinOut"}, {form_.fAttribs, "fAttribs"},
      {form_.lName, "lName"}, {form_.chField, "chField"}, {form_.udHor, "udHor"}};
  for (const auto& [surface, name] : surfaces) {
    surface.OnMouseMove([&over, name = name](int index) {
      over.push_back(index == kNoIndex ? name : name + std::to_string(index));
    });
  }
  MainWindow window(form_);
  Open(window, &FrmStart::fWindows);
  form_.chField(1).SetEnabled(false);
  const std::pair<QWidget*, const char*> places[] = {
      {&Widget(window, "chField(1)"), "chField1"},
      {Widget(window, "udHor(1)").findChild<QLineEdit*>(), "udHor1"},
      {Widget(window, "udHor(1)").parentWidget(), "udHor1"},
      {Widget(window, "lName(1)").parentWidget(), "lName1"},
      {Widget(window, "pWinIn").parentWidget(), "pWinOut"},
      {Widget(window, "ComWin(2)").parentWidget(), "fAttribs"},
      {&window, "form"}};
  for (const auto& [place, surface] : places) {
    over.clear();
    QMouseEvent move(QEvent::MouseMove, QPointF(1, 1), place->mapToGlobal(QPointF(1, 1)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(place, &move);
    QApplication::sendEvent(place, &move);
    Settle();
    EXPECT_THAT(over, ElementsAre(surface));
  }
  std::vector<int> left;
  form_.chOnOff.OnLostFocus([&](int index) { left.push_back(index); });
  Leave(Widget(window, "chOnOff(1)"),
        {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason, Qt::TabFocusReason});
  Settle();
  EXPECT_THAT(left, ElementsAre(1)) << "a box or another program does not count";
}

TEST_F(WindowTest, TheParameterTableShowsVisibleRowsAndMarks) {
  MainWindow window(form_);
  Open(window, &FrmStart::fParameters);
  const QAbstractItemModel& model = *Widget<QTableView>(window, "pParIn").model();
  ASSERT_EQ(model.rowCount(), 2);
  const QModelIndex description = model.index(1, 2);
  form_.tVal(2).SetText("FF");
  EXPECT_EQ(model.index(1, 1).data(), "2");
  EXPECT_EQ(model.index(1, 3).data(), "FF");
  form_.lDesc(2).SetBackColor(kYellow);
  EXPECT_GE(Contrast(description.data(Qt::BackgroundRole).value<QColor>(),
                     description.data(Qt::ForegroundRole).value<QColor>()),
            4.5);
  form_.bValue.SetCaption("Value (Hex)");
  EXPECT_EQ(model.headerData(3, Qt::Horizontal), "Value (Hex)");
  form_.lDesc.Unload(2);
  EXPECT_EQ(description.data(), "Gain 2") << "a row that is gone is seen until the table is in order";
  QCoreApplication::processEvents();
  EXPECT_EQ(model.rowCount(), 1);
}

}  // namespace
}  // namespace marlinset
