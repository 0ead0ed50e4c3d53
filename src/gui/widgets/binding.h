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

/// The focus goes to another field, and not only for a while to a box, a menu or another program.
bool GoesForGood(const QFocusEvent& event);

/// A number as the operator sees it, and how many of his actions on it are still to be carried out.
struct Awaited {
  int actions = 0;
  int value = 0;      ///< where those actions lead
  QString text = {};  ///< how it is written
  Signal<> Changed = {};
};

/// What a widget stands for where that is not simply its control: the record of a row stands in another row
/// once the list was sorted. What the operator does is meant for the record.
class Subject {
 public:
  Subject() = default;
  virtual ~Subject() = default;
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;
  /// The control that stands for it now, null while or when there is none.
  virtual Control* Find() const = 0;

  Awaited awaited;
};

/// Ties one widget to one control of the panel model. The widget takes the control's full name as object name
/// and follows its enabled and visible flags, tool tip and yellow mark; `show` paints the rest. What the
/// operator does is connected with the binding as context object and goes through Act. Until that is carried
/// out the widget shows what the operator did, and not what the control still holds.
///
/// The binding belongs to the widget. A control may go away before its widget does: Detach comes first then.
class Binding : public QObject {
  Q_OBJECT
 public:
  Binding(QWidget& widget, Control& control, std::function<void()> show = {},
          std::shared_ptr<Subject> subject = {});
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
  bool Pending() const { return awaited_->actions > 0; }
  Awaited& GetAwaited() { return *awaited_; }
  /// Whether the control stands for what the widget shows.
  bool Present() const { return !controls_.empty() && (!subject_ || subject_->Find() == controls_.front()); }
  /// The subject has moved to other controls: the widget goes with it.
  void Follow(const std::vector<Control*>& controls);
  /// Paints the widget as the model is now.
  void Show();
  bool Detached() const { return controls_.empty(); }
  /// The control is about to go; the widget keeps its last look and is deaf from now on.
  void Detach();

  /// Detaches all bindings of a widget and of the widgets in it, hides it and deletes it when it is safe.
  static void Retire(QWidget& widget);

  /// Why the widget is disabled; stands in its tool tip while it is.
  void SetDisabledReason(const QString& reason);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Listen(Control& control);
  void Take(OperatorAction action, Turn turn, std::function<void()> done = {});
  void ShowMark();
  void ShowToolTip();

  QWidget& widget_;
  std::vector<Control*> controls_;  ///< the first one names the widget; empty once detached
  std::vector<Listening<>> listening_;
  std::function<void()> show_;
  QString disabledReason_;
  bool marked_ = false;
  std::shared_ptr<Subject> subject_;
  std::shared_ptr<Awaited> awaited_;
  Listening<> awaitedListening_;
};

}  // namespace marlinset
