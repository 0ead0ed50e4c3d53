// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "controls/control.h"
#include "controls/signal.h"
#include "gui/widgets/operator_queue.h"

class QFocusEvent;
class QWidget;

namespace marlinset {

/// Whether the focus goes to another field, and not just temporarily to a box, a menu or another program.
bool GoesForGood(const QFocusEvent& event);

/// A number as the operator sees it, and how many of the operator's actions on it are still pending.
struct Awaited {
  int actions = 0;
  int value = 0;      ///< the result of those actions
  QString text = {};  ///< the number as text
  Signal<> Changed = {};
};

/// What a widget represents, if that is not simply its control: a sort moves a record to another row, and the
/// operator's actions are meant for the record.
class Subject {
 public:
  Subject() = default;
  virtual ~Subject() = default;
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;
  /// The control that represents it now, null while there is none.
  virtual Control* Find() const = 0;

  Awaited awaited;
};

/// Binds one widget to one control of the panel model. The widget takes the control's full name as object
/// name and follows its enabled and visible flags, tool tip and yellow mark; `show` paints the rest. The
/// operator's signals are connected with the binding as context object and go through Act. Until an action is
/// carried out, the widget shows what the operator did, not what the control still holds.
///
/// The binding belongs to the widget. Call Detach before a control is destroyed earlier than its widget.
class Binding : public QObject {
  Q_OBJECT
 public:
  Binding(QWidget& widget, Control& control, std::function<void()> show = {},
          std::shared_ptr<Subject> subject = {});
  ~Binding() override;

  /// Adds a control that the widget shows (the echo beside a spin): its mark, flags and changes count too.
  /// `part` is the child widget that carries the control's name. Call Show after the last one.
  void Add(Control& control, QWidget* part = nullptr);
  /// Treats the mouse over `widget`, which surrounds the control, as over the control.
  void AddSurface(QWidget& widget);
  /// The binding of a widget, which must have one.
  static Binding& Of(QWidget& widget);
  /// Queues the operator's action for the control that names the widget. After the action and `done`, the
  /// widget shows what the model made of it.
  void Act(const OperatorAction& action, Turn turn = Turn::kInOrder, std::function<void()> done = {});
  /// Whether an action is pending or running.
  bool Pending() const { return awaited_->actions > 0; }
  Awaited& GetAwaited() { return *awaited_; }
  /// Whether the control represents what the widget shows.
  bool Present() const { return !controls_.empty() && Target() == controls_.front(); }
  /// The control that the operator's actions are for; null if there is none any more.
  Control* Target() const { return Detached() ? nullptr : subject_ ? subject_->Find() : controls_.front(); }
  /// The subject has moved to other controls: the widget follows it.
  void Follow(const std::vector<Control*>& controls);
  /// Paints the model's present state.
  void Show();
  bool Detached() const { return controls_.empty(); }
  /// The control is about to be destroyed; the widget keeps its last look and ignores everything from now on.
  void Detach();

  /// Detaches all bindings of a widget and its children, hides it and deletes it when that is safe.
  static void Retire(QWidget& widget);

  /// Why the widget is disabled; its tool tip shows this while it is.
  void SetDisabledReason(const QString& reason);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Listen(Control& control);
  void Take(OperatorAction action, Turn turn, std::function<void()> done = {});
  void ShowMark();
  void ShowToolTip();

  QWidget& widget_;
  std::vector<Control*> controls_;  ///< the first names the widget; empty once detached
  std::vector<Listening<>> listening_;
  std::function<void()> show_;
  QString disabledReason_;
  bool marked_ = false;
  std::shared_ptr<Subject> subject_;
  std::shared_ptr<Awaited> awaited_;
  Listening<> awaitedListening_;
};

}  // namespace marlinset
