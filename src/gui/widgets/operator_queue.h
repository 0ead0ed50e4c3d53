// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <deque>
#include <functional>
#include <string>

#include "controls/pending_edit.h"
#include "controls/signal.h"

namespace marlinset {

class Control;
class Form;
class Guard;

/// What an operator can do to a control.
struct OperatorAction {
  enum class Kind { kClick, kCheck, kSelect, kType, kSpin, kStep, kHover, kLeave };
  Kind kind;
  int number = 0;  ///< kCheck: 0 or 1; kSelect: the entry; kSpin: the value; kStep: clicks, above 0 is up
  std::string text = {};  ///< kType: the text; kSelect: the entry as the operator read it
  /// Finds the control that by then represents the operator's object, null if that has gone: a list may
  /// refill its rows while an action waits. Empty if the control always represents the same object.
  std::function<Control*()> find = {};
  int leadsTo = 0;  ///< kSpin, kStep: the value that the operator then sees
};

/// When an action is carried out.
enum class Turn {
  kInOrder,
  kHover,    ///< in order, but only the latest hover counts
  kAtOnce,   ///< even while the tool waits for the unit: it ends such a wait
  kClosing,  ///< in order, so that no earlier action is lost, but no wait continues meanwhile
};

/// Carries the operator's actions from the widgets to the controls. A widget queues an action in its event
/// handler and returns; the queue carries it out from the event pump, when no handler of a widget and no
/// other handler of the tool is running. So a rule may wait for the unit and pump events: no release of the
/// mouse overtakes its press, no widget is destroyed in its own handler, and what the operator does in the
/// meantime is carried out when the wait is over, each action once and in order.
///
/// A program has one queue, as an operator has one pair of hands: see Application.
class OperatorQueue : public QObject {
  Q_OBJECT
 public:
  OperatorQueue();
  ~OperatorQueue() override;
  static OperatorQueue& OfProgram();

  /// Queues an action on a control; it lapses if the control is destroyed first. `done` runs when it was
  /// carried out or has lapsed, unless `context` has gone by then.
  void Take(Control& control, const OperatorAction& action, Turn turn, QObject* context = nullptr,
            std::function<void()> done = {});
  /// Queues an action on the window that shows `form`; it lapses if the window is destroyed first.
  /// `edits` returns the values to which it sets controls; it is asked as long as the action waits. Empty for
  /// one that sets none.
  void Take(const Form& form, QObject& window, std::function<void()> action,
            std::function<PendingEdits()> edits = {});
  /// The mouse moves over `form` itself, not over a control.
  void TakeHover(Form& form, QObject& window);

  /// `field` holds a half-typed number, which is the edit `typed`, if it is a number. `complete` queues it,
  /// before the operator's next action, wherever the focus is by then.
  void HoldTyping(QObject& field, std::function<void()> complete, std::function<PendingEdits()> typed);
  /// The operator takes back what `field` holds.
  void DropTyping(QObject& field);
  /// Completes the half-typed number.
  void FinishTyping();

  /// What the operator has set and typed, but no control holds yet. Not what an action does besides, or what
  /// a command such as New would do.
  PendingEdits Pending() const;
  /// Pending may return something else from now on.
  Signal<> PendingChanged;

  /// The condition for which the queue waits may have changed.
  void Wake();
  /// An event handler of a widget begins or ends.
  void HandlerBegins() { ++handlers_; }
  void HandlerEnds();

  /// Runs `show`, which opens a window of the tool over the others and returns when it has closed. The queue
  /// carries out that window's actions while the opening action waits, the last ones before this returns.
  void OpenOver(const Form& form, QWidget& window, const std::function<void()>& show);

 protected:
  bool event(QEvent* event) override;

 private:
  struct Entry {
    std::function<bool()> alive;
    const Form* form;
    Turn turn;
    std::function<void()> action;
    std::function<void()> over = [] {};  ///< the action was carried out or has lapsed
    std::function<PendingEdits()> edits = {};
    bool gradual = false;  ///< the control takes several values in turn
  };
  /// The actions on one level of windows, and the handlers that wait for its end since it began.
  struct Level {
    const Guard* guard = nullptr;
    int handlersOfTool = 0;
    int handlersOfWidgets = 0;
    QPointer<QWidget> window = {};
    const Entry* running = nullptr;  ///< the action being carried out
    std::deque<Entry> entries = {};
  };

  void Add(Entry entry);
  bool ToolAtRest(const Level& level) const;
  bool OperatorAtRest(const Level& level) const;
  static void Lapse(Level& level);
  void CarryOutNext();
  void CarryOutFirst(Level& level);
  void Interrupt(Level& level);

  std::deque<Level> levels_{1};
  QPointer<QObject> typedIn_;
  std::function<void()> completeTyping_;
  std::function<PendingEdits()> typed_;
  int handlers_ = 0;
  bool posted_ = false;
};

}  // namespace marlinset
