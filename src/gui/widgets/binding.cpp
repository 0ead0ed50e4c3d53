// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/binding.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QScrollArea>
#include <QWidget>
#include <algorithm>

#include "gui/widgets/look.h"
#include "gui/widgets/scroll_keeper.h"

namespace marlinset {
namespace {

/// Scrolls the surrounding areas so that the widget is visible; does nothing on a hidden panel, nor where the
/// operator is at work.
void ShowMarked(QWidget& widget) {
  if (!widget.isVisible()) return;
  for (QWidget* around = widget.parentWidget(); around; around = around->parentWidget()) {
    auto* area = qobject_cast<QScrollArea*>(around);
    if (area && ScrollKeeper::MayScroll(*area)) area->ensureWidgetVisible(&widget);
  }
}

}  // namespace

bool GoesForGood(const QFocusEvent& event) {
  switch (event.reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
      return false;
    default:
      return true;
  }
}

Binding::Binding(QWidget& widget, Control& control, std::function<void()> show,
                 std::shared_ptr<Subject> subject)
    : QObject(&widget),
      widget_(widget),
      show_(std::move(show)),
      subject_(std::move(subject)),
      awaited_(subject_ ? std::shared_ptr<Awaited>(subject_, &subject_->awaited)
                        : std::make_shared<Awaited>()),
      awaitedListening_(awaited_->Changed, [this] { Show(); }) {
  widget.setObjectName(Shown(control.FullName()));
  if (!control.Caption().empty()) widget.setAccessibleName(SpokenName(ShownLiteral(control.Caption())));
  Add(control, &widget);
}

Binding::~Binding() = default;

void Binding::Add(Control& control, QWidget* part) {
  Listen(control);
  if (part) {
    part->setObjectName(Shown(control.FullName()));
    AddSurface(*part);
  }
}

void Binding::Listen(Control& control) {
  controls_.push_back(&control);
  listening_.emplace_back(control.Changed, [this] { Show(); });
}

void Binding::Follow(const std::vector<Control*>& controls) {
  listening_.clear();
  controls_.clear();
  for (Control* control : controls) Listen(*control);
  widget_.setObjectName(Shown(controls.front()->FullName()));
  Show();
}

void Binding::AddSurface(QWidget& widget) {
  widget.setMouseTracking(true);
  widget.installEventFilter(this);
}

Binding& Binding::Of(QWidget& widget) {
  return *widget.findChild<Binding*>(QString(), Qt::FindDirectChildrenOnly);
}

void Binding::Act(const OperatorAction& action, Turn turn, std::function<void()> done) {
  if (controls_.empty()) return;
  ++awaited_->actions;
  awaited_->Changed.Emit();
  Take(action, turn, [self = QPointer<Binding>(this), awaited = awaited_, done = std::move(done)] {
    --awaited->actions;
    if (self && done) done();
    awaited->Changed.Emit();
  });
}

void Binding::Take(OperatorAction action, Turn turn, std::function<void()> done) {
  if (subject_) action.find = [subject = subject_] { return subject->Find(); };
  OperatorQueue::OfProgram().Take(*controls_.front(), action, turn, nullptr, std::move(done));
}

void Binding::Show() {
  if (!Present()) return;
  const auto all = [this](bool (Control::*flag)() const) {
    return std::all_of(controls_.begin(), controls_.end(), [flag](Control* c) { return (c->*flag)(); });
  };
  widget_.setEnabled(all(&Control::Enabled));
  const bool visible = controls_.front()->Visible();
  // A widget that was never hidden needs no call: it appears with its parent.
  if (!visible || widget_.testAttribute(Qt::WA_WState_ExplicitShowHide)) widget_.setVisible(visible);
  ShowToolTip();
  if (show_ && !Pending()) show_();
  ShowMark();
}

void Binding::ShowMark() {
  const bool marked = std::any_of(controls_.begin(), controls_.end(),
                                  [](Control* control) { return control->BackColor() == kYellow; });
  if (marked == marked_) return;
  marked_ = marked;
  SetMarked(widget_, marked);
  if (marked) ShowMarked(widget_);
}

void Binding::ShowToolTip() {
  QString tip = Shown(controls_.front()->ToolTip());
  if (!disabledReason_.isEmpty() && !controls_.front()->Enabled()) tip = disabledReason_;
  if (tip != widget_.toolTip()) widget_.setToolTip(tip);
}

void Binding::SetDisabledReason(const QString& reason) {
  disabledReason_ = reason;
  Show();
}

void Binding::Detach() {
  listening_.clear();
  controls_.clear();
  QObject::disconnect(&widget_, nullptr, this, nullptr);
}

void Binding::Retire(QWidget& widget) {
  for (Binding* binding : widget.findChildren<Binding*>()) binding->Detach();
  widget.hide();
  widget.deleteLater();
}

bool Binding::eventFilter(QObject* watched, QEvent* event) {
  if (controls_.empty()) return QObject::eventFilter(watched, event);
  if (event->type() == QEvent::FocusOut && watched == &widget_ &&
      GoesForGood(*static_cast<QFocusEvent*>(event))) {
    Take({OperatorAction::Kind::kLeave}, Turn::kInOrder);
    return QObject::eventFilter(watched, event);
  }
  if (event->type() == QEvent::MouseMove && static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton) {
    Take({OperatorAction::Kind::kHover}, Turn::kHover);
    return true;  // hovers only the innermost surface, not also the sheet below it
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace marlinset
