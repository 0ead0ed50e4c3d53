// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPaintEvent>
#include <QTableView>
#include <map>
#include <set>

#include "gui/widgets/fields.h"
#include "panels/views.h"
#include "tests/gui/form_fixture.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct HandsTest : MainWindowTest {
  /// Opens the editor of a parameter's value with F2, from another cell of its row.
  static QWidget& EditValue(const MainWindow& window, int row) {
    auto& table = Widget<QTableView>(window, "pParIn");
    table.setCurrentIndex(table.model()->index(row, 0));
    QTest::keyClick(&table, Qt::Key_F2);
    return dynamic_cast<SpinField&>(*QApplication::focusWidget());
  }
};

TEST_F(HandsTest, TabReadsTheWindowTableRowByRow) {
  MainWindow window(form_);
  form_.ForWindowRow([](auto& array) { array.Unload(1); });
  form_.ForWindowRow([](auto& array) { array.Load(3); });
  form_.ForWindowRow([](auto& array) { array.Load(1).SetVisible(true); });
  Open(window, &FrmStart::fWindows);
  EXPECT_FALSE(Widget(window, "lName(3)").parentWidget()->isVisible()) << "a hidden row leaves no gap";
  std::string order;
  Widget(window, "chSym(1)").setFocus();
  for (int i = 0; i < 12; ++i) {
    order += window.focusWidget()->objectName().toStdString() + ' ';
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order,
            "chSym(1) chField(1) udVer(1) udHor(1) chOnOff(2) chSlate(2) chDblSize(2) chSym(2) chField(2) "
            "udVer(2) udHor(2) ComWin(2) ");
}

TEST_F(HandsTest, EscAndEnterNeverSend) {
  std::vector<std::string> done;
  form_.udVal.OnChange([&](int row) { done.push_back(std::to_string(form_.udVal(row).Value())); });
  form_.bDesc.OnClick([&] { done.emplace_back("sorted"); });
  form_.mnuSav.OnClick([&] { done.emplace_back("saved"); });
  for (Button* button : {&form_.bSConfig, &form_.bOpen, &form_.bSend}) {
    button->OnClick([&done, button] { done.push_back(button->Name()); });
  }
  MainWindow window(form_);
  Open(window, &FrmStart::fParameters);
  QWidget& field = EditValue(window, 1);
  QTest::keyClicks(&field, "55");
  QTest::keyClick(&field, Qt::Key_Escape);
  for (const char* name : {"bSConfig", "bOpen", "bSend"}) {
    auto& button = Widget(window, name);
    button.setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) QTest::keyClick(&button, key);
  }
  Settle();
  EXPECT_THAT(done, IsEmpty());
  QTest::keyClick(&Widget(window, "bSConfig"), Qt::Key_Space);
  QTest::keyClicks(&EditValue(window, 0), "66");
  emit Widget<QTableView>(window, "pParIn").horizontalHeader()->sectionClicked(2);
  Settle();
  QWidget& number = EditValue(window, 1);
  Enter(number, "7", Qt::Key_7);
  QTest::keyClick(&number, Qt::Key_S, Qt::ControlModifier);
  Settle();
  EXPECT_THAT(done, ElementsAre("bSConfig", "66", "sorted", "77", "saved")) << "a number counts first";
}

/// A sort or a removal that was requested earlier is carried out first and refills the same controls.
TEST_F(HandsTest, ANumberIsForTheParameterThatWasRead) {
  std::vector<std::string> then, done;
  form_.bDesc.OnClick([&] {
    for (const int row : {1, 2}) form_.lDesc(row).SetCaption(then[static_cast<std::size_t>(row) - 1]);
  });
  form_.udVal.OnChange([&](int row) {
    done.push_back(form_.lDesc(row).Caption() + " = " + std::to_string(form_.udVal(row).Value()));
  });
  for (const auto& [order, expected] : std::map<std::vector<std::string>, std::vector<std::string>>{
           {{"Gain 2", "Gain 1"}, {"Gain 1 = 66", "Gain 1 = 67"}}, {{"Gain 2", "Gain 3"}, {}}}) {
    then = order;
    done.clear();
    for (const int row : {1, 2}) {
      form_.lParam(row).SetCaption("");
      form_.lDesc(row).SetCaption("Gain " + std::to_string(row));
    }
    MainWindow window(form_);
    Open(window, &FrmStart::fParameters);
    QWidget& field = EditValue(window, 0);
    emit Widget<QTableView>(window, "pParIn").horizontalHeader()->sectionClicked(2);
    QTest::keyClicks(&field, "66");
    QTest::keyClick(&field, Qt::Key_Return);
    const QModelIndex cell = Widget<QTableView>(window, "pParIn").model()->index(0, 3);
    EXPECT_EQ(cell.data(), "66") << "shown at once";
    QWidget& again = EditValue(window, 0);
    QTest::keyClicks(&again, "67");
    QTest::keyClick(&again, Qt::Key_Return);
    Settle();
    EXPECT_EQ(done, expected);
  }
}

/// Not to the video standard, where the next arrow goes on air.
TEST_F(HandsTest, APanelThatGoesHandsTheFocusToTheViews) {
  Views views(form_);
  MainWindow window(form_);
  Open(window, &FrmStart::fCodes);
  const std::tuple<const char*, Qt::Key, const char*> steps[] = {{"comTB(0)", Qt::Key_4, "oView(3)"},
                                                                 {"pParIn", Qt::Key_3, "oView(2)"},
                                                                 {"chSym(1)", Qt::Key_2, "oView(1)"},
                                                                 {"chDups", Qt::Key_5, "oView(5)"}};
  for (const auto& [field, key, view] : steps) {
    Widget(window, field).setFocus();
    QTest::keyClick(&window, key, Qt::AltModifier);
    Settle();
    EXPECT_EQ(window.focusWidget()->objectName().toStdString(), view);
  }
}

TEST_F(HandsTest, KeysGoToTheChosenOptionAndChooseNone) {
  form_.oVITC(2).SetValue(true);
  form_.oView(1).SetValue(true);
  MainWindow window(form_);
  Open(window, &FrmStart::fOutputs);
  const auto focus = [&] { return window.focusWidget()->objectName().toStdString(); };
  QTest::keyClick(&window, Qt::Key_L, Qt::AltModifier);
  EXPECT_EQ(focus(), "oVITC(2)");
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    EXPECT_FALSE(qobject_cast<QAbstractButton*>(label->buddy())) << "a label presses its button: on air";
  }
  std::set<std::string> stops;
  for (int i = 0; i < 60; ++i) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    stops.insert(focus());
  }
  for (const auto& [stop, reached] : std::map<std::string, bool>{{"oVITC(0)", false},
                                                                 {"oVITC(1)", false},
                                                                 {"oVITC(2)", true},
                                                                 {"oView(0)", false},
                                                                 {"oView(1)", true}}) {
    EXPECT_EQ(stops.contains(stop), reached) << stop;
  }
  Widget(window, "oVITC(2)").setFocus();
  form_.oVITC(0).SetValue(true);
  EXPECT_EQ(focus(), "oVITC(0)") << "arrows count from the chosen one";
}

TEST_F(HandsTest, OneConfigurationCanBeDropped) {
  std::vector<std::string> opened;
  MainWindow window(form_, {.openFile = [&](const std::string& name) { opened.push_back(name); }});
  Open(window, &FrmStart::fCodes);
  for (const QLineEdit* field : window.findChildren<QLineEdit*>()) {
    EXPECT_FALSE(field->acceptDrops()) << field->objectName().toStdString() << " takes the name as text";
  }
  for (const char* url : {"https://shows.example/a.qcf", "file:///a.txt", "file:///shows/Evening News.QCF"}) {
    QMimeData data;
    data.setUrls({QUrl(url)});
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted()) continue;
    QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    EXPECT_THAT(opened, IsEmpty()) << "the other program waits meanwhile";
    QCoreApplication::processEvents();
  }
  EXPECT_THAT(opened, ElementsAre("/shows/Evening News.QCF"));
}

/// What a window paints, in the coordinates of one of its widgets.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(const QWidget& place) : place_(place) { qApp->installEventFilter(this); }
  QRect painted;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (!widget || event->type() != QEvent::Paint || widget->window() != place_.window()) return false;
    const QRect part = static_cast<QPaintEvent*>(event)->rect();
    painted |= QRect(place_.mapFromGlobal(widget->mapToGlobal(part.topLeft())), part.size());
    return false;
  }

 private:
  const QWidget& place_;
};

TEST_F(HandsTest, AMarkRepaintsItsOwnControlOnly) {
  MainWindow window(form_);
  const std::pair<Frame FrmStart::*, std::vector<Control*>> cases[] = {
      {&FrmStart::fOutputs, {&form_.comTB(1), &form_.upVitc1(1), &form_.comVS}},
      {&FrmStart::fWindows, {&form_.ComWin(2), &form_.lName(1), &form_.tWinMess}}};
  for (const auto& [panel, controls] : cases) {
    Open(window, panel);
    Settle();  // the tool bar may have to wrap first
    for (Control* control : controls) {
      SCOPED_TRACE(control->FullName());
      const QWidget& widget = Widget(window, control->FullName());
      const PaintWatch watch(widget);
      control->SetBackColor(kYellow);
      QCoreApplication::processEvents();
      EXPECT_FALSE(watch.painted.isEmpty());
      EXPECT_TRUE(widget.rect().contains(watch.painted));
    }
  }
}

}  // namespace
}  // namespace marlinset
