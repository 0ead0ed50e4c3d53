// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/window/window_storm.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenuBar>

#include "gui/widgets/operator_queue.h"
#include "link/replies.h"
#include "tests/storm/world.h"
#include "tests/window/live_window.h"

namespace marlinset {
namespace {

constexpr int kFewestSteps = 20, kMostSteps = 60;
constexpr int kWindowsView = 2;

class WindowStorm {
 public:
  WindowStorm(unsigned seed, bool trace) : world_(seed, trace, std::make_unique<WindowPump>()) {}

  StormReport Run() {
    rig_.dialogs.onShow = [this](const MessageBox& box) { return Answer(box); };
    Start();
    for (int i = kFewestSteps + world_.Pick(kMostSteps - kFewestSteps); i > 0 && !Ended(); --i) {
      Step();
      ++report_.steps;
    }
    report_.closed = Ended();
    if (!Ended()) Calm();
    if (!Ended()) ExpectAgreement();
    return std::move(report_);
  }

 private:
  bool Ended() const { return rig_.pump.Ending(); }
  void Fault(const std::string& what) { report_.faults.push_back(what); }

  BoxAnswer Answer(const MessageBox& box) {
    world_.Trace("box '" + box.text + "'");
    ++report_.boxes[box.text];
    if (TellsOfFailure(box)) Fault(box.text);
    const bool agrees = calm_ || !world_.OneIn(3);
    if (box.buttons == BoxButtons::kYesNo) return agrees ? BoxAnswer::kYes : BoxAnswer::kNo;
    return BoxAnswer::kOk;
  }

  void Start() {
    rig_.settings.SaveSetting("Load", world_.folder.Path() + "/");
    rig_.tool.Start("");
    rig_.line.Unit().SetManual(true);
    rig_.line.Unit().SetVideo(true);
    desk_.Show(kWindowsView);
    form_.mnuInter.OperatorClick();
  }

  void Step() {
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

  /// Anything that mouse and keys can do, to whatever is open on top.
  void Use() {
    if (Ended() || rig_.dialogs.Standing()) return;
    QWidget* popup = QApplication::activePopupWidget();
    if (popup && world_.OneIn(5)) return PressKey(Qt::Key_Escape);
    switch (world_.Pick(9)) {
      case 0:
      case 1:
        return PressKeys();
      case 2:
        return Turn(popup);
      case 3:
        return MoveTo(Somewhere(popup));
      case 4:
        return OpenMenu();
      default:
        return ClickOn(Somewhere(popup));
    }
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

  void PressKey(int key) {
    world_.Trace("key " + std::to_string(key));
    desk_.Key(key, Qt::NoModifier, key < 128 ? QString(QChar(key)) : QString());
  }
  void PressKeys() {
    constexpr std::array kKeys{int{Qt::Key_Space},
                               int{Qt::Key_Up},
                               int{Qt::Key_Down},
                               int{Qt::Key_PageUp},
                               int{Qt::Key_Tab},
                               int{Qt::Key_Backtab},
                               int{Qt::Key_Return},
                               int{Qt::Key_Escape},
                               int{Qt::Key_F2},
                               int{Qt::Key_Home},
                               int{Qt::Key_Backspace},
                               int{'1'},
                               int{'7'},
                               int{'A'},
                               int{Qt::Key_Left},
                               int{Qt::Key_Right}};
    const int key = world_.PickOf(kKeys);
    for (int i = world_.OneIn(3) ? 5 : 1; i > 0; --i) PressKey(key);
  }

  /// Nobody acts any more, and the unit answers as it should.
  void Calm() {
    world_.Trace("calm");
    calm_ = true;
    rig_.line.Unit().Faults() = {};
    rig_.pump.Pass(1000);
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    OperatorQueue::OfProgram().FinishTyping();
    rig_.pump.Pass(20000);
    TurnQtsLoop();
  }

  void ExpectAgreement() {
    for (const std::string& line : desk_.Disagreements()) Fault("after the storm " + line);
    if (form_.tInput.Visible()) form_.mnuCommD.OperatorClick();
    if (form_.comVS.ListIndex() < 0) form_.comVS.OperatorSelect(0);
    rig_.line.Unit().SetStandard(VideoStandardCode(form_.comVS.Text()));
    desk_.Click(desk_.Widget("bSConfig"));
    TurnQtsLoop();
    const SendResult& result = rig_.tool.wholeSend.Result();
    const int unknownModel = rig_.line.Unit().Model() == kUnknownModel ? 1 : 0;
    if (result.end != SendEnd::kComplete || result.Doubtful() != unknownModel)
      Fault("the last send ended with " + std::to_string(static_cast<int>(result.end)));
    for (const std::string& line : DifferencesToUnit(rig_.tool, rig_.line.Unit().Memory())) Fault(line);
    for (const std::string& line : desk_.Disagreements()) Fault("after the send " + line);
  }

  World world_;
  ToolRig& rig_ = world_.rig;
  FrmStart& form_ = rig_.tool.form;
  LiveWindow desk_{rig_};
  StormReport report_;
  bool calm_ = false;
};

}  // namespace

StormReport RunWindowStorm(unsigned seed, bool trace) {
  return WindowStorm(seed, trace).Run();
}

}  // namespace marlinset
