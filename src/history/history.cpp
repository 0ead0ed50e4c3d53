// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/history.h"

#include <algorithm>
#include <span>
#include <utility>

#include "base/text.h"
#include "controls/dialogs.h"
#include "controls/guard.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "history/scope.h"
#include "link/communications.h"
#include "link/whole_send.h"
#include "platform/event_pump.h"
#include "platform/platform.h"

namespace marlinset {
namespace {

constexpr std::int64_t kQuickMs = 1000;

}  // namespace

History::History(Platform& platform, Variables& variables, FrmStart& form, const Parts& parts)
    : platform_(platform),
      vars_(variables),
      form_(form),
      parts_(parts),
      cabinet_(platform, variables, form, parts.file, parts.changes),
      mirror_(variables, form),
      begins_(platform.guard.Begins, [this](const Control* control) { Begins(control); }),
      named_(platform.guard.Named,
             [this](const std::string& name) {
               if (!running_.empty()) running_.back().name = name;
             }),
      over_(platform.guard.Over, [this] { Over(); }),
      asking_(platform.dialogs.Asking, [this] { NoteQuestion(); }) {
  form_.mnuUndo.OnClick([this] { Undo(); });
  form_.mnuRedo.OnClick([this] { Redo(); });
  // A handler that sends may wait for the answer.
  parts_.communications.FrameSent.Connect([this](std::span<const std::uint8_t>) {
    if (!begun_ || waits_ || platform_.guard.AtWork() == 0) return;
    waits_ = true;
    ShowState();
  });
  parts_.file.SaveEnded.Connect([this](SaveEnd end) {
    if (end == SaveEnd::kStored) NoteSave();
  });
}

void History::Begin() {
  running_.clear();
  undo_.clear();
  redo_.clear();
  aside_.clear();
  mirror_.Begin();
  begun_ = true;
  ShowState();
}

std::vector<std::string> History::NamesOf(const Entries& entries) {
  std::vector<std::string> names;
  for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) names.push_back(entry->name);
  return names;
}

/// Attributes what has changed since the last look to the handler that runs, or to none.
void History::Gather() {
  Changes changes = mirror_.Look();
  if (changes.empty()) return;
  if (running_.empty()) {
    AddBehind(std::move(changes));
  } else {
    Extend(running_.back(), std::move(changes));
  }
}

/// Looks only before what the operator does: the line has hundreds of handlers in a send.
void History::Begins(const Control* control) {
  if (!begun_) return;
  if (control) Gather();
  Running& handler = running_.emplace_back(Running{.agreed = platform_.dialogs.Agreed()});
  if (!control) return;
  handler.isOperators = true;
  handler.passedOver = IsPassedOver(*control);
  handler.opensFile = OpensFile(*control);
  handler.name = NameOfAction(*control, form_);
  handler.filing = cabinet_.Present();
  if (&control->Owner() == &form_ && JoinsQuickChanges(*control)) handler.joins = mirror_.KeyOf(*control);
}

/// What was changed before a question of a timer's handler is none of its answer's doing.
void History::NoteQuestion() {
  if (!begun_) return;
  Changes changes = mirror_.Look();
  const auto operators = std::find_if(running_.rbegin(), running_.rend(),
                                      [](const Running& handler) { return handler.isOperators; });
  if (operators == running_.rend()) {
    AddBehind(std::move(changes));
  } else {
    Extend(*operators, std::move(changes));
  }
}

/// What a save has stored stays stored, whatever is undone.
void History::NoteSave() {
  if (!undo_.empty()) undo_.back().joins.reset();
  for (Running& handler : running_) {
    if (handler.filing) handler.filing = cabinet_.Present();
  }
}

/// A timer's handler is none of the operator's doing, except where the operator has answered its question.
bool History::IsEntry(const Running& handler) const {
  return handler.isOperators ? !handler.passedOver : platform_.dialogs.Agreed() > handler.agreed;
}

/// Adds what a handler has changed since another one ended in its wait. That one stays an entry of its own,
/// behind all of this handler's changes, so that no undo stops where a handler had done half its work. If
/// both have changed the same, they are one entry.
void History::Extend(Running& handler, Changes changes) {
  const bool apart = std::ranges::all_of(
      handler.inner, [&](const Action& action) { return AreApart(action.changes, changes); });
  if (!apart) {
    for (Action& action : handler.inner) {
      handler.changes = Joined(std::move(handler.changes), std::move(action.changes));
    }
    if (handler.passedOver || !handler.isOperators) handler.name = handler.inner.front().entry.name;
    handler.isOperators = true;
    handler.passedOver = false;
    handler.inner.clear();
  }
  handler.changes = Joined(std::move(handler.changes), std::move(changes));
}

void History::Over() {
  if (running_.empty()) return;
  const bool mayBeEntry = IsEntry(running_.back());
  if (mayBeEntry || running_.back().isOperators) Gather();
  Running handler = std::move(running_.back());
  running_.pop_back();
  if (mayBeEntry || !handler.changes.empty() || !handler.inner.empty()) Settle(std::move(handler));
  if (platform_.guard.AtWork() > 0) return;
  waits_ = false;
  ShowState();
}

/// Makes an entry of what a handler has changed, or leaves it to the handler in whose wait it ran.
void History::Settle(Running handler) {
  std::optional<Action> own = ActionOf(handler);
  if (own) {
    handler.inner.insert(handler.inner.begin(), *std::move(own));
  } else if (!running_.empty()) {
    Extend(running_.back(), std::move(handler.changes));
  } else {
    AddBehind(std::move(handler.changes));
  }
  for (Action& action : handler.inner) {
    if (running_.empty()) {
      Add(std::move(action));
    } else {
      running_.back().inner.push_back(std::move(action));
    }
  }
}

/// What a handler has changed itself, if that is an entry.
std::optional<History::Action> History::ActionOf(Running& handler) {
  if (!IsEntry(handler)) return std::nullopt;
  const auto refiled = std::ranges::find_if(
      handler.inner, [](const Action& action) { return action.entry.filing.has_value(); });
  const Filing& after = refiled == handler.inner.end() ? cabinet_.Present() : *refiled->entry.filing;
  // New and Open may lead to the same name: then what is stored has changed.
  const bool changedFile =
      handler.filing && (!handler.filing->IsOfSameFile(after) ||
                         (!handler.changes.empty() && !handler.filing->HasSameStored(after)));
  if (handler.changes.empty() && !changedFile) return std::nullopt;
  Action action{.entry = {.name = NameOf(handler, handler.changes),
                          .change = {},
                          .behind = {},
                          .filing = {},
                          .joins = handler.joins,
                          .time = platform_.pump.Now()},
                .changes = std::move(handler.changes)};
  if (changedFile) action.entry.filing = std::move(handler.filing);
  return action;
}

std::string History::NameOf(const Running& handler, const Changes& changes) const {
  if (handler.opensFile) return handler.name + " " + FileNameOf(parts_.file.Path());
  if (handler.isOperators) return handler.name;
  for (const Change& change : changes) {
    if (const Control* control = mirror_.ControlOf(change.thing)) return NameOfAction(*control, form_);
  }
  return "Answer";
}

void History::Add(Action action) {
  redo_.clear();
  KeepAside();
  if (JoinsLatest(action.entry)) {
    Entry& latest = undo_.back();
    latest.change = Difference(Joined(latest.change.Expand(), std::move(action.changes)));
    latest.time = action.entry.time;
    if (latest.change.Empty()) undo_.pop_back();
    return;
  }
  action.entry.change = Difference(action.changes);
  undo_.push_back(std::move(action.entry));
  if (undo_.size() > kMost) undo_.pop_front();
}

bool History::JoinsLatest(const Entry& entry) const {
  if (!entry.joins || undo_.empty()) return false;
  const Entry& latest = undo_.back();
  return latest.joins == entry.joins && latest.behind.Empty() && entry.time - latest.time < kQuickMs;
}

/// Changes that are no entry go back with the entry before them. Those that are made between an undo and its
/// redo are in neither's way.
void History::AddBehind(Changes changes) {
  if (changes.empty()) return;
  aside_ = Joined(std::move(aside_), std::move(changes));
  if (redo_.empty()) KeepAside();
}

void History::KeepAside() {
  const Changes changes = std::exchange(aside_, {});
  if (changes.empty() || undo_.empty()) return;
  Difference& behind = undo_.back().behind;
  behind = Difference(Joined(behind.Expand(), changes));
}

void History::Undo() {
  if (undo_.empty() || platform_.guard.AtWork() > 1) return;
  Entry entry = std::move(undo_.back());
  undo_.pop_back();
  const Changes done =
      Joined(Joined(entry.change.Expand(), entry.behind.Expand()), std::exchange(aside_, {}));
  Go(std::move(entry), Reversed(done), redo_);
}

void History::Redo() {
  if (redo_.empty() || platform_.guard.AtWork() > 1) return;
  Entry entry = std::move(redo_.back());
  redo_.pop_back();
  const Changes undone = Joined(entry.change.Expand(), entry.behind.Expand());
  Go(std::move(entry), Joined(Reversed(std::exchange(aside_, {})), undone), undo_);
}

/// Makes the changes, and sends what the unit does not hold, or does not hold any more.
void History::Go(Entry entry, const Changes& changes, Entries& to) {
  parts_.wholeSend.SendChangesOf([&] {
    mirror_.Apply(changes);
    if (entry.filing) {
      Filing here = cabinet_.Present();
      cabinet_.Restore(*std::exchange(entry.filing, std::move(here)));
    }
    vars_.ConfigSaved = parts_.changes.IsStored();
    to.push_back(std::move(entry));
    for (Entries* entries : {&undo_, &redo_}) {
      if (!entries->empty()) entries->back().joins.reset();
    }
    ShowState();
  });
}

void History::ShowState() {
  const auto show = [this](MenuItem& item, const std::string& verb, const Entries& entries) {
    const bool offered = !waits_ && !entries.empty();
    item.SetCaption(offered ? verb + " " + entries.back().name : verb);
    item.SetEnabled(offered);
  };
  show(form_.mnuUndo, "Undo", undo_);
  show(form_.mnuRedo, "Redo", redo_);
}

}  // namespace marlinset
