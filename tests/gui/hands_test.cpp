// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPaintEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <map>
#include <set>

#include "core/parameter_forms.h"
#include "gui/about_window.h"
#include "gui/fields.h"
#include "gui/main_window.h"
#include "gui/parameter_dialogs.h"
#include "gui/qt_dialogs.h"
#include "tests/gui/form_fixture.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<Frame FrmStart::*> kPanels = {&FrmStart::fCodes, &FrmStart::fOutputs, &FrmStart::fWindows,
                                                &FrmStart::fParameters, &FrmStart::fDownConverter};

/// Whether an operator types or chooses something here.
bool IsInput(const QWidget* widget) {
  return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QComboBox*>(widget) ||
         qobject_cast<const QAbstractSpinBox*>(widget) || qobject_cast<const QLineEdit*>(widget) ||
         qobject_cast<const QPlainTextEdit*>(widget) || qobject_cast<const QAbstractItemView*>(widget);
}

/// The inputs of a window, without the parts that an input is made of.
std::vector<QWidget*> Inputs(const QWidget& window) {
  std::vector<QWidget*> inputs;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    bool part = false;
    for (const QWidget* around = widget->parentWidget(); around; around = around->parentWidget()) {
      part = part || IsInput(around);
    }
    const bool own = !part && widget->window() == &window && !widget->objectName().startsWith("qt_");
    if (IsInput(widget) && own) inputs.push_back(widget);
  }
  return inputs;
}

std::string SpokenName(QWidget& widget) {
  return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name).toStdString();
}

/// Every name belongs to a control, every input has one and is told from its neighbours by a screen reader.
void ExpectNames(const QWidget& window, const Form& form) {
  std::set<std::string> controls = {form.Name(), "StatBar"};
  for (const Control* control : form.Controls()) controls.insert(control->FullName());
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    const std::string name = widget->objectName().toStdString();
    if (name.empty() || name.starts_with("qt_")) continue;
    EXPECT_TRUE(controls.contains(name)) << name;
  }
  std::map<std::string, std::string> spoken;
  for (QWidget* input : Inputs(window)) {
    const std::string name = input->objectName().toStdString();
    EXPECT_TRUE(controls.contains(name)) << input->metaObject()->className() << " without a name";
    EXPECT_NE(SpokenName(*input), "") << name;
    const auto [before, isNew] = spoken.emplace(SpokenName(*input), name);
    EXPECT_TRUE(isNew) << name << " and " << before->second << " are both \"" << before->first << '"';
  }
}

/// No two texts that stand on the screen together claim the same letter.
void ExpectMnemonicsApart(const QWidget& window) {
  std::map<QKeySequence, std::string> letters;
  const auto claim = [&](const QString& text) {
    const QKeySequence letter = QKeySequence::mnemonic(text);
    if (letter.isEmpty()) return;
    const auto [before, isNew] = letters.emplace(letter, text.toStdString());
    EXPECT_TRUE(isNew) << text.toStdString() << " and " << before->second;
  };
  for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
    if (button->isVisible()) claim(button->text());
  }
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (label->isVisible() && label->buddy()) claim(label->text());
  }
  for (const QMenuBar* bar : window.findChildren<QMenuBar*>()) {
    for (const QAction* action : bar->actions()) claim(action->text());
  }
}

class HandsTest : public FormTest {
 protected:
  HandsTest() {
    for (const int row : {2, 1}) {
      form_.ForWindowRow([row](auto& array) { array.Load(row).SetVisible(true); });
      form_.lName(row).SetCaption("Window " + std::to_string(row));
      form_.lClass.Load(row).SetVisible(true);
      form_.lParam.Load(row);
      form_.lDesc.Load(row).SetCaption("Gain " + std::to_string(row));
      form_.tVal.Load(row).SetText("7");
      form_.tVal(row).SetVisible(true);
      form_.udVal.Load(row).SetMax(100);
      form_.udVal(row).SetVisible(true);
    }
    form_.lName(0).SetVisible(false);
    form_.lClass(0).SetVisible(false);
    form_.ForWindowRow([](auto& array) { array(0).SetVisible(false); });
    form_.UpDown1.SetMax(100);
    form_.UpDown1.OnMoved(
        [this](int) { form_.tLineNumber(0).SetText(std::to_string(form_.UpDown1.Value())); });
  }
  void Open(MainWindow& window, Frame FrmStart::*panel) {
    for (const auto other : kPanels) (form_.*other).SetVisible(other == panel);
    form_.SetVisible(true);
    window.resize(1400, 900);  // room for all, so that nothing scrolls
    window.activateWindow();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }
  /// The editor of a value, with all of it selected.
  static QWidget* EditValue(const MainWindow& window, int row) {
    auto& table = Widget<QTableView>(window, "pParIn");
    table.edit(table.model()->index(row, 3));
    auto* field = dynamic_cast<SpinField*>(QApplication::focusWidget());
    if (!field) throw std::logic_error("no editor");
    field->selectAll();
    return field;
  }
};

TEST_F(HandsTest, EveryInputHasANameAndEveryNameAControl) {
  MainWindow window(form_);
  Open(window, &FrmStart::fOutputs);
  ExpectNames(window, form_);
  FrmAbout about(guard_);
  ExpectNames(*MakeAboutWindow(about, nullptr), about);
  FrmEditParameters edit(guard_);
  FrmDeleteParameter remove(guard_);
  QtDialogs dialogs;
  AddParameterWindows(dialogs, edit, remove);
  for (Form* form : {static_cast<Form*>(&edit), static_cast<Form*>(&remove)}) {
    int seen = 0;
    QTimer::singleShot(0, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (!dialog) return;
      ++seen;
      ExpectNames(*dialog, *form);
      ExpectMnemonicsApart(*dialog);
      dialog->close();
    });
    dialogs.ShowModal(*form);
    EXPECT_EQ(seen, 1);
  }
}

TEST_F(HandsTest, MnemonicsOfAPanelLeadToOneFieldEach) {
  MainWindow window(form_);
  for (const auto panel : kPanels) {
    Open(window, panel);
    SCOPED_TRACE((form_.*panel).Name());
    ExpectMnemonicsApart(window);
  }
  for (const QMenu* menu : window.findChildren<QMenu*>()) {
    std::set<QKeySequence> letters;
    for (const QAction* action : menu->actions()) {
      const QKeySequence letter = QKeySequence::mnemonic(action->text());
      EXPECT_TRUE(action->isSeparator() || letters.insert(letter).second) << action->text().toStdString();
    }
  }
}

TEST_F(HandsTest, TabReadsTheWindowTableRowByRow) {
  MainWindow window(form_);
  form_.ForWindowRow([](auto& array) { array.Unload(1); });
  form_.ForWindowRow([](auto& array) { array.Load(1).SetVisible(true); });
  Open(window, &FrmStart::fWindows);
  std::vector<std::string> order;
  Widget<QWidget>(window, "chOnOff(1)").setFocus();
  for (int i = 0; i < 16; ++i) {
    order.push_back(window.focusWidget()->objectName().toStdString());
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("chOnOff(1)", "chSlate(1)", "chDblSize(1)", "chSym(1)", "chField(1)",
                                 "udVer(1)", "udHor(1)", "chOnOff(2)", "chSlate(2)", "chDblSize(2)",
                                 "chSym(2)", "chField(2)", "udVer(2)", "udHor(2)", "ComWin(2)", "ComWin(3)"));
}

TEST_F(HandsTest, ANumberCountsWithTheNextActionAndNotBefore) {
  std::vector<int> whenSaved;
  form_.mnuSav.OnClick([&] { whenSaved.push_back(form_.UpDown1.Value()); });
  MainWindow window(form_);
  Open(window, &FrmStart::fOutputs);
  auto& line = Widget<SpinField>(window, "UpDown1");
  line.setFocus();
  line.selectAll();
  QTest::keyClicks(&line, "15");
  for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
    QFocusEvent out(QEvent::FocusOut, reason);
    QApplication::sendEvent(&line, &out);
  }
  EXPECT_EQ(form_.UpDown1.Value(), 0) << "a box came up in the middle of the number";
  EXPECT_EQ(line.text(), "15");
  window.findChild<QAction*>("mnuSav")->trigger();
  EXPECT_THAT(whenSaved, ElementsAre(15)) << "what is seen is what is saved";
}

TEST_F(HandsTest, EscAndEnterNeverSend) {
  std::vector<std::string> done;
  form_.udVal.OnChange([&](int row) { done.push_back("udVal" + std::to_string(row)); });
  form_.bDesc.OnClick([&] { done.emplace_back("sorted"); });
  for (Button* button : {&form_.bSConfig, &form_.bOpen, &form_.bSend}) {
    button->OnClick([&done, button] { done.push_back(button->Name()); });
  }
  MainWindow window(form_);
  Open(window, &FrmStart::fParameters);
  QWidget* field = EditValue(window, 1);
  QTest::keyClicks(field, "55");
  QTest::keyClick(field, Qt::Key_Escape);
  EXPECT_THAT(done, IsEmpty());
  for (const char* name : {"bSConfig", "bOpen", "bSend"}) {
    auto& button = Widget<QPushButton>(window, name);
    button.setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) QTest::keyClick(&button, key);
  }
  EXPECT_THAT(done, IsEmpty());
  QTest::keyClick(&Widget<QPushButton>(window, "bSConfig"), Qt::Key_Space);
  EXPECT_THAT(done, ElementsAre("bSConfig"));
  QTest::keyClicks(EditValue(window, 0), "66");
  emit Widget<QTableView>(window, "pParIn").horizontalHeader()->sectionClicked(2);
  EXPECT_THAT(done, ElementsAre("bSConfig", "udVal1", "sorted")) << "before another row takes its place";
}

TEST_F(HandsTest, KeysGoToTheChosenOptionAndChooseNone) {
  for (const int i : form_.oVITC.Indices()) form_.oVITC(i).SetValue(i == 2);
  for (const int i : form_.oView.Indices()) form_.oView(i).SetValue(i == 1);
  MainWindow window(form_);
  Open(window, &FrmStart::fOutputs);
  QTest::keyClick(&window, Qt::Key_L, Qt::AltModifier);
  EXPECT_EQ(window.focusWidget()->objectName().toStdString(), "oVITC(2)");
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    EXPECT_FALSE(qobject_cast<QAbstractButton*>(label->buddy())) << "a label presses its button: on air";
  }
  std::set<std::string> stops;
  for (int i = 0; i < 60; ++i) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    stops.insert(window.focusWidget()->objectName().toStdString());
  }
  for (const char* never : {"oVITC(0)", "oVITC(1)", "oView(0)", "oView(2)"})
    EXPECT_FALSE(stops.contains(never));
  EXPECT_TRUE(stops.contains("oVITC(2)") && stops.contains("oView(1)"));
  Widget<QWidget>(window, "oVITC(2)").setFocus();
  form_.oVITC(2).SetValue(false);
  form_.oVITC(0).SetValue(true);
  EXPECT_EQ(window.focusWidget()->objectName().toStdString(), "oVITC(0)")
      << "arrows count from the chosen one";
}

TEST_F(HandsTest, OneConfigurationCanBeDropped) {
  std::vector<std::string> opened;
  MainWindow window(form_, {.openFile = [&](const std::string& name) { opened.push_back(name); }});
  Open(window, &FrmStart::fCodes);
  for (const QLineEdit* field : window.findChildren<QLineEdit*>()) {
    EXPECT_FALSE(field->acceptDrops()) << field->objectName().toStdString() << " takes the name as text";
  }
  const std::pair<QList<QUrl>, bool> cases[] = {
      {{QUrl::fromLocalFile("/shows/Evening News.QCF")}, true},
      {{QUrl::fromLocalFile("/shows/a.qcf"), QUrl::fromLocalFile("/shows/b.qcf")}, false},
      {{QUrl::fromLocalFile("/shows/a.txt")}, false},
      {{QUrl("https://shows.example/a.qcf")}, false},
      {{}, false}};
  for (const auto& [urls, taken] : cases) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    EXPECT_EQ(enter.isAccepted(), taken);
    if (!taken) continue;
    QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    EXPECT_THAT(opened, IsEmpty()) << "the other program waits meanwhile";
    QCoreApplication::processEvents();
    EXPECT_THAT(opened, ElementsAre("/shows/Evening News.QCF"));
  }
}

TEST_F(HandsTest, RecentFilesAreCutInTheMenuAndNeverEmpty) {
  ControlArray<MenuItem> recent(form_, "mnuRecent", {1, 2});
  recent(1).SetCaption("/a very long folder name/and one more/and yet another one/R&D/Evening News.qcf");
  recent(2).SetVisible(false);
  const MainWindow window(form_, {.recentFiles = &recent});
  const auto* first = window.findChild<QAction*>("mnuRecent(1)");
  EXPECT_TRUE(first->text().startsWith("&1  /a very"));
  EXPECT_TRUE(first->text().contains(QChar(0x2026)));
  EXPECT_TRUE(first->text().endsWith("News.qcf"));
  EXPECT_EQ(first->toolTip().toStdString(), recent(1).Caption());
  EXPECT_FALSE(window.findChild<QAction*>("mnuRecent(2)")->isVisible());
  recent(2).SetCaption("/R&D.qcf");
  recent(2).SetVisible(true);
  EXPECT_TRUE(window.findChild<QAction*>("mnuRecent(2)")->isVisible());
  EXPECT_EQ(window.findChild<QAction*>("mnuRecent(2)")->text(), "&2  /R&&D.qcf");
}

/// Collects which widgets are painted, and outside which place that happens.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(const QWidget& place) : place_(place) { qApp->installEventFilter(this); }
  int inside = 0;
  std::vector<std::string> outside;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || event->type() != QEvent::Paint || widget->window() != place_.window()) return false;
    const QRect painted = static_cast<QPaintEvent*>(event)->rect();
    const QRect allowed(place_.mapTo(place_.window(), QPoint()), place_.size());
    if (allowed.contains(painted.translated(widget->mapTo(widget->window(), QPoint())))) {
      ++inside;
    } else {
      outside.push_back(widget->metaObject()->className() + (" " + widget->objectName().toStdString()));
    }
    return false;
  }

 private:
  const QWidget& place_;
};

TEST_F(HandsTest, AMarkRepaintsItsOwnControlOnly) {
  MainWindow window(form_);
  const std::pair<Frame FrmStart::*, std::vector<Control*>> cases[] = {
      {&FrmStart::fOutputs, {&form_.comTB(1), &form_.chVITC, &form_.upVitc1(1), &form_.comVS}},
      {&FrmStart::fWindows, {&form_.ComWin(2), &form_.lName(1), &form_.tWinMess, &form_.chPrev}},
      {&FrmStart::fDownConverter, {&form_.ComWin(0), &form_.lName(1)}}};
  for (const auto& [panel, controls] : cases) {
    Open(window, panel);
    for (Control* control : controls) {
      QCoreApplication::processEvents();
      auto& widget = Widget<QWidget>(window, control->FullName().c_str());
      for (const Color color : {kYellow, kWindowColor}) {
        SCOPED_TRACE(control->FullName());
        PaintWatch watch(widget);
        control->SetBackColor(color);
        QCoreApplication::processEvents();
        EXPECT_EQ(watch.inside != 0, widget.isVisible());
        EXPECT_THAT(watch.outside, IsEmpty());
      }
    }
  }
}

}  // namespace
}  // namespace marlinset
