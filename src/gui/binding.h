// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "gui/operator_queue.h"
#include "platform/control.h"
#include "platform/signal.h"

class QFocusEvent;
class QWidget;

namespace marlinset {

/// The focus goes to another field, and not only for a while to a box, a menu or another program.
bool GoesForGood(const QFocusEvent& event);

/// Ties one widget to one control of the panel model. The widget takes the control's full name as object name
/// and follows its enabled and visible flags, tool tip and yellow mark; `show` paints the rest. What the
/// operator does is connected with the binding as context object and goes through Act. Until that is carried
/// out the widget shows what the operator did, and not what the control still holds.
///
/// The binding belongs to the widget. A control may go away before its widget does: Detach comes first then.
class Binding : public QObject {
  Q_OBJECT
 public:
  Binding(QWidget& widget, Control& control, std::function<void()> show = {});
  ~Binding() override;

  /// One more control that the widget shows (the echo beside a spin): its mark, flags and changes count too.
  /// `part` is the child widget that carries the control's name. Show comes after the last one.
  void Add(Control& control, QWidget* part = nullptr);
  /// The mouse over `widget`, which lies around the control, counts as over the control.
  void AddSurface(QWidget& widget);
  /// The binding of a widget, which must have one.
  static Binding& Of(QWidget& widget);
  /// Takes the operator's action down for the control that names the widget. Once it was carried out, and
  /// after `done`, the widget shows what the model made of it.
  void Act(const OperatorAction& action, Turn turn = Turn::kInOrder, std::function<void()> done = {});
  /// Whether an action is still to be carried out, or is at work.
  bool Pending() const { return pending_ > 0; }
  /// Paints the widget as the model is now.
  void Show();
  /// The control is about to go; the widget keeps its last look and is deaf from now on.
  void Detach();

  /// Detaches all bindings of a widget and of the widgets in it, hides it and deletes it when it is safe.
  static void Retire(QWidget& widget);

  /// Why the widget is disabled; stands in its tool tip while it is.
  void SetDisabledReason(const QString& reason);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowMark();
  void ShowToolTip();

  QWidget& widget_;
  std::vector<Control*> controls_;  ///< the first one names the widget; empty once detached
  std::vector<Listening<>> listening_;
  std::function<void()> show_;
  QString disabledReason_;
  bool marked_ = false;
  int pending_ = 0;  ///< actions that are still to be carried out
};

}  // namespace marlinset
