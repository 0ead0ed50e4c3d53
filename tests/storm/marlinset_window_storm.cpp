// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QApplication>
#include <QMenuBar>

#include "gui/picture_view.h"
#include "gui/widgets/application.h"
#include "gui/widgets/operator_queue.h"
#include "gui/widgets/readable_style.h"
#include "tests/storm/storm_run.h"
#include "tests/window/live_window.h"

namespace marlinset {
namespace {

constexpr int kMostSteps = 60;
constexpr int kWindowsView = 2;

/// Mouse and keys do anything to the window, also while the tool waits for answers that are late, doubled or
/// lost.
class WindowStorm : public StormRun {
 public:
  WindowStorm(unsigned seed, bool trace) : StormRun(seed, trace, kMostSteps) {}

 private:
  void Start() override {
    rig_.settings.SaveSetting("Load", world_.folder.Path() + "/");
    rig_.tool.Start("");
    rig_.line.Unit().SetManual(true);
    rig_.line.Unit().SetVideo(true);
    desk_.Show(kWindowsView);
    if (world_.OneIn(2)) form_.mnuPicture.OperatorClick();
    form_.mnuInter.OperatorClick();
  }

  void Step() override {
    if (world_.OneIn(5)) ChangeAnswers();
    for (int i = world_.Pick(3); i > 0; --i) {
      rig_.pump.At(rig_.pump.Now() + world_.Pick(150), [this] { Use(); });
    }
    for (int i = 1 + world_.Pick(3); i > 0; --i) Use();
    LiveWindow::Settle();
    if (world_.OneIn(3)) rig_.pump.Pass(world_.Pick(world_.OneIn(4) ? 6000 : 300));
    for (Form* form : rig_.tool.Forms()) {
      if (form != &form_ && form->Visible()) form->SetVisible(false);
    }
  }

  void ChangeAnswers() {
    UnitFaults& faults = rig_.line.Unit().Faults();
    faults.drop = world_.Pick(3);
    faults.twice = world_.Pick(3);
    faults.lateAcks = std::chrono::milliseconds{world_.OneIn(2) ? 0 : world_.Pick(200)};
    faults.lateFrames = std::chrono::milliseconds{world_.OneIn(2) ? 0 : world_.Pick(60)};
    world_.Trace("answers lost, doubled, late");
  }

  /// Anything that mouse and keys can do to whatever is open on top.
  void Use() {
    if (Ended() || rig_.dialogs.Standing()) return;
    QWidget* popup = QApplication::activePopupWidget();
    if (popup && world_.OneIn(5)) return PressKey(Qt::Key_Escape);
    if (!popup && world_.OneIn(8)) return DragInPicture();
    if (world_.OneIn(12)) return GoBack();
    const int what = world_.Pick(9);
    if (what < 2) return PressKeys();
    if (what < 3) return Turn(popup);
    if (what < 4) return MoveTo(Somewhere(popup));
    what < 5 ? OpenMenu() : ClickOn(Somewhere(popup));
  }

  QWidget& Somewhere(QWidget* popup) {
    QList<QWidget*> places;
    for (QWidget* widget : (popup ? popup : &desk_.Window())->findChildren<QWidget*>()) {
      const bool taken = widget->focusPolicy() != Qt::NoFocus || world_.OneIn(12);
      if (widget->isVisible() && widget->isEnabled() && taken && !widget->visibleRegion().isEmpty())
        places << widget;
    }
    if (places.isEmpty()) return popup ? *popup : desk_.Window();
    return *world_.PickOf(places);
  }

  QPoint PointIn(const QWidget& widget) {
    const QRect seen = widget.visibleRegion().boundingRect();
    return seen.topLeft() +
           QPoint(world_.Pick(std::max(1, seen.width())), world_.Pick(std::max(1, seen.height())));
  }

  void Trace(const char* what, const QWidget& widget) {
    world_.Trace(std::string(what) + " " + widget.metaObject()->className() + " " +
                 widget.objectName().toStdString());
  }

  void ClickOn(QWidget& widget) {
    Trace("click", widget);
    const QPoint at = PointIn(widget);
    for (int i = world_.OneIn(4) ? 3 : 1; i > 0; --i) desk_.Click(widget, at);
  }
  void MoveTo(QWidget& widget) {
    Trace("move", widget);
    desk_.Move(widget, PointIn(widget));
  }
  void DragInPicture() {
    auto* view = desk_.Window().findChild<PictureView*>();
    if (!view || !view->isVisible() || view->visibleRegion().isEmpty()) return;
    Trace("drag", *view);
    desk_.Press(*view, PointIn(*view));
    for (int i = world_.Pick(4); i > 0; --i) desk_.Hold(*view, PointIn(*view));
    if (world_.OneIn(6)) PressKey(Qt::Key_Escape);
    desk_.Release(*view, PointIn(*view));
  }
  void Turn(QWidget* popup) {
    if (popup || !QApplication::focusWidget()) return;
    Trace("wheel", *QApplication::focusWidget());
    desk_.Wheel(*QApplication::focusWidget(), world_.OneIn(2));
  }
  void OpenMenu() {
    auto* bar = desk_.Window().findChild<QMenuBar*>();
    QList<QAction*> menus = bar->actions();
    const QRect place = bar->actionGeometry(world_.PickOf(menus));
    Trace("menu", *bar);
    desk_.Click(*bar, place.center());
  }

  void GoBack() {
    const bool redo = world_.OneIn(3);
    world_.Trace(redo ? "redo" : "undo");
    desk_.Key(Qt::Key_Z, redo ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier);
  }
  void PressKey(int key) {
    world_.Trace("key " + std::to_string(key));
    desk_.Key(key, Qt::NoModifier, key < 128 ? QString(QChar(key)) : QString());
  }
  void PressKeys() {
    constexpr int kKeys[] = {Qt::Key_Space, Qt::Key_Up,        Qt::Key_Down,     Qt::Key_PageUp,
                             Qt::Key_Tab,   Qt::Key_Backtab,   Qt::Key_Return,   Qt::Key_Escape,
                             Qt::Key_F9,    Qt::Key_Delete,    Qt::Key_PageDown, Qt::Key_F2,
                             Qt::Key_Home,  Qt::Key_Backspace, Qt::Key_1,        Qt::Key_7,
                             Qt::Key_A,     Qt::Key_Left,      Qt::Key_Right};
    const int key = world_.PickOf(kKeys);
    for (int i = world_.OneIn(3) ? 5 : 1; i > 0; --i) PressKey(key);
  }

  void Calm() override {
    rig_.line.Unit().Faults() = {};
    rig_.pump.Pass(1000);
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    OperatorQueue::OfProgram().FinishTyping();
    rig_.pump.Pass(20000);
    TurnQtsLoop();
  }

  void Judge() override {
    Faults(desk_.Disagreements());
    if (desk_.Window().isWindowModified() != rig_.tool.unsavedChanges.Modified())
      Fault("the title tells otherwise what is stored");
    Mend();
    world_.Trace("the last send");
    desk_.Click(desk_.Widget("bSConfig"));
    TurnQtsLoop();
    ExpectSent();
    Faults(desk_.Disagreements());
  }

  LiveWindow desk_{rig_};
};

}  // namespace
}  // namespace marlinset

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const marlinset::Application application(argc, argv);
  QApplication::setStyle(new marlinset::ReadableStyle);
  return marlinset::RunStorms(
      argc, argv, [](unsigned seed, bool trace) { return marlinset::WindowStorm(seed, trace).Run(); });
}
