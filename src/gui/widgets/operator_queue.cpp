// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/operator_queue.h"

#include <QApplication>
#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>
#include <vector>

#include "base/finally.h"
#include "controls/control_types.h"
#include "controls/form.h"
#include "controls/guard.h"
#include "gui/widgets/application.h"

namespace marlinset {
namespace {

/// The list may differ from the one that the operator read: the entry counts, not its place.
void Select(Control& control, const OperatorAction& action) {
  const std::vector<std::string> entries = control.Entries();
  const auto place = static_cast<std::size_t>(action.number);
  if (place < entries.size() && entries[place] == action.text) {
    control.OperatorSelect(action.number);
    return;
  }
  const auto found = std::find(entries.begin(), entries.end(), action.text);
  if (found != entries.end()) control.OperatorSelect(static_cast<int>(found - entries.begin()));
}

void Perform(Control& control, const OperatorAction& action) {
  switch (action.kind) {
    case OperatorAction::Kind::kClick:
      control.OperatorClick();
      break;
    case OperatorAction::Kind::kCheck:
      control.OperatorCheck(action.number != 0);
      break;
    case OperatorAction::Kind::kSelect:
      Select(control, action);
      break;
    case OperatorAction::Kind::kType:
      control.OperatorType(action.text);
      break;
    case OperatorAction::Kind::kSpin:
      control.OperatorSpin(action.number);
      break;
    case OperatorAction::Kind::kStep:
      control.OperatorStep(action.number > 0, std::abs(action.number));
      break;
    case OperatorAction::Kind::kHover:
      control.OperatorHover();
      break;
    case OperatorAction::Kind::kLeave:
      control.OperatorLeave();
      break;
  }
}

/// Empty for an action that sets nothing, and for a choice that the list no longer offers.
PendingEdits EditsOf(const Control& control, const OperatorAction& action) {
  switch (action.kind) {
    case OperatorAction::Kind::kClick:
      if (control.Kind() != ControlKind::kOptionButton) return {};
      return {{&control, 1}};
    case OperatorAction::Kind::kCheck:
      return {{&control, action.number}};
    case OperatorAction::Kind::kSelect: {
      const std::vector<std::string> entries = control.Entries();
      if (std::ranges::find(entries, action.text) == entries.end()) return {};
      return {{&control, action.text}};
    }
    case OperatorAction::Kind::kType:
      return {{&control, action.text}};
    case OperatorAction::Kind::kSpin:
    case OperatorAction::Kind::kStep:
      return {{&control, action.leadsTo}};
    case OperatorAction::Kind::kHover:
    case OperatorAction::Kind::kLeave:
      return {};
  }
  return {};
}

std::function<bool()> WhileThere(QObject& window) {
  return [there = QPointer<QObject>(&window)] { return !there.isNull(); };
}

}  // namespace

OperatorQueue::OperatorQueue() = default;
OperatorQueue::~OperatorQueue() = default;

OperatorQueue& OperatorQueue::OfProgram() {
  return static_cast<Application*>(QCoreApplication::instance())->Operator();
}

void OperatorQueue::Take(Control& control, const OperatorAction& action, Turn turn, QObject* context,
                         std::function<void()> done) {
  using Kind = OperatorAction::Kind;
  const bool sets = action.kind != Kind::kHover && action.kind != Kind::kLeave;
  if (sets) FinishTyping();
  const QPointer<QObject> listener(context);
  const auto present = [&control, action] { return action.find ? action.find() : &control; };
  Entry entry{.alive = [life = control.Life()] { return !life.expired(); },
              .form = &control.Owner(),
              .turn = turn,
              .action =
                  [present, action] {
                    if (Control* const found = present()) Perform(*found, action);
                  },
              .over =
                  [context, listener, done = std::move(done)] {
                    if (done && (!context || listener)) done();
                  },
              .gradual = action.kind == Kind::kStep};
  if (sets) {
    entry.edits = [present, action] {
      const Control* const found = present();
      return found ? EditsOf(*found, action) : PendingEdits();
    };
  }
  Add(std::move(entry));
}

void OperatorQueue::Take(const Form& form, QObject& window, std::function<void()> action,
                         std::function<PendingEdits()> edits) {
  FinishTyping();
  Add({.alive = WhileThere(window),
       .form = &form,
       .turn = Turn::kInOrder,
       .action = std::move(action),
       .edits = std::move(edits)});
}

void OperatorQueue::TakeHover(Form& form, QObject& window) {
  Add({.alive = WhileThere(window), .form = &form, .turn = Turn::kHover, .action = [&form] {
         form.OperatorHover();
       }});
}

void OperatorQueue::Add(Entry entry) {
  std::deque<Entry>& entries = levels_.back().entries;
  if (entry.turn == Turn::kHover) {
    std::erase_if(entries, [](const Entry& earlier) { return earlier.turn == Turn::kHover; });
  }
  entries.push_back(std::move(entry));
  if (entries.back().edits) PendingChanged.Emit();
  Wake();
}

void OperatorQueue::HoldTyping(QObject& field, std::function<void()> complete,
                               std::function<PendingEdits()> typed) {
  if (typedIn_ != &field) FinishTyping();
  typedIn_ = &field;
  completeTyping_ = std::move(complete);
  typed_ = std::move(typed);
  PendingChanged.Emit();
}

void OperatorQueue::DropTyping(QObject& field) {
  if (typedIn_ != &field) return;
  typedIn_ = nullptr;
  PendingChanged.Emit();
}

void OperatorQueue::FinishTyping() {
  const std::function<void()> complete = std::exchange(completeTyping_, nullptr);
  if (std::exchange(typedIn_, nullptr) && complete) complete();
}

PendingEdits OperatorQueue::Pending() const {
  PendingEdits all;
  const auto add = [&all](const Entry& entry) {
    if (!entry.edits || !entry.alive()) return;
    const PendingEdits edits = entry.edits();
    all.insert(all.end(), edits.begin(), edits.end());
  };
  for (const Level& level : levels_) {
    if (level.running && level.running->gradual) add(*level.running);
    for (const Entry& entry : level.entries) add(entry);
  }
  if (typedIn_ && typed_) {
    const PendingEdits typed = typed_();
    all.insert(all.end(), typed.begin(), typed.end());
  }
  return all;
}

void OperatorQueue::Wake() {
  if (posted_ || levels_.back().entries.empty()) return;
  posted_ = true;
  QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void OperatorQueue::HandlerEnds() {
  --handlers_;
  Wake();
}

bool OperatorQueue::event(QEvent* event) {
  if (event->type() != QEvent::User) return QObject::event(event);
  posted_ = false;
  CarryOutNext();
  return true;
}

/// No handler of the tool is running except those that wait for this level to end.
bool OperatorQueue::ToolAtRest(const Level& level) const {
  const Guard& guard = level.entries.front().form->GetGuard();
  return !level.running && guard.AtWork() == (&guard == level.guard ? level.handlersOfTool : 0);
}

/// No widget is in the middle of an event, and no box is in front of the windows.
bool OperatorQueue::OperatorAtRest(const Level& level) const {
  const QWidget* modal = QApplication::activeModalWidget();
  return handlers_ == level.handlersOfWidgets && (!modal || modal == level.window);
}

/// Forgets the actions whose control or window has gone.
void OperatorQueue::Lapse(Level& level) {
  std::deque<Entry>& entries = level.entries;
  const auto gone =
      std::stable_partition(entries.begin(), entries.end(), [](const Entry& entry) { return entry.alive(); });
  const std::vector<Entry> lapsed(std::make_move_iterator(gone), std::make_move_iterator(entries.end()));
  entries.erase(gone, entries.end());
  for (const Entry& entry : lapsed) entry.over();
}

/// One action in an event of its own, so that what it changed is painted before the next.
void OperatorQueue::CarryOutNext() {
  Level& level = levels_.back();
  Lapse(level);
  if (level.entries.empty() || !OperatorAtRest(level)) return;
  if (ToolAtRest(level)) {
    CarryOutFirst(level);
    Wake();
  } else {
    Interrupt(level);
  }
}

void OperatorQueue::CarryOutFirst(Level& level) {
  const Entry entry = std::move(level.entries.front());
  level.entries.pop_front();
  const Entry* const within = std::exchange(level.running, &entry);
  const auto carryOut = [&] {
    if (entry.alive()) entry.action();
  };
  Finally([&] { Finally(carryOut, entry.over); },
          [&] {
            level.running = within;
            if (entry.edits) PendingChanged.Emit();
          });
}

/// Carries out the actions that cannot wait for the end of the present wait.
void OperatorQueue::Interrupt(Level& level) {
  const auto urgent = std::find_if(level.entries.begin(), level.entries.end(), [](const Entry& entry) {
    return entry.turn == Turn::kAtOnce || entry.turn == Turn::kClosing;
  });
  if (urgent == level.entries.end()) return;
  if (urgent->turn == Turn::kClosing) {
    urgent->turn = Turn::kInOrder;
    urgent->form->Closing.Emit();
  } else {
    std::rotate(level.entries.begin(), urgent, urgent + 1);
    CarryOutFirst(level);
  }
  Wake();
}

void OperatorQueue::OpenOver(const Form& form, QWidget& window, const std::function<void()>& show) {
  const Guard& guard = form.GetGuard();
  Level& level = levels_.emplace_back(Level{
      .guard = &guard, .handlersOfTool = guard.AtWork(), .handlersOfWidgets = handlers_, .window = &window});
  Finally(
      [&] {
        show();
        while (!level.entries.empty()) CarryOutFirst(level);
      },
      [this] {
        levels_.pop_back();
        Wake();
      });
}

}  // namespace marlinset
