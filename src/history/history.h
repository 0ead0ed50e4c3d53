// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "controls/signal.h"
#include "history/changes.h"
#include "history/filing.h"
#include "history/mirror.h"

namespace marlinset {

class Communications;
class WholeSend;

/// What the operator has changed, step by step, and the way back: `mnuUndo` and `mnuRedo`.
///
/// The history compares the configuration before and after each of the operator's actions; no panel knows of
/// it. An action that changed something is an entry, and so is what a question of the tool changed. Changes
/// of the same spin or text box that follow each other within a second are one entry. What is no entry but
/// changes order or look all the same (a sort, another radix, a send) goes back with the entry before it.
///
/// Going back writes states; no rule runs. In interactive mode it then sends what the unit does not hold.
class History {
 public:
  struct Parts {
    ConfigurationFile& file;
    UnsavedChanges& changes;
    Communications& communications;
    WholeSend& wholeSend;
  };
  static constexpr std::size_t kMost = 200;

  History(Platform& platform, Variables& variables, FrmStart& form, const Parts& parts);

  /// Begins with the configuration as it is: nothing to undo or redo.
  void Begin();

  /// What can be undone and redone, latest first.
  std::vector<std::string> UndoNames() const { return NamesOf(undo_); }
  std::vector<std::string> RedoNames() const { return NamesOf(redo_); }
  /// Bytes that the latest entry holds.
  std::size_t LatestSize() const { return undo_.empty() ? 0 : undo_.back().change.Size(); }

 private:
  struct Entry {
    std::string name;
    Difference change;
    Difference behind;              ///< what followed and is no entry
    std::optional<Filing> filing;   ///< on the other side, if it changed file
    std::optional<ThingKey> joins;  ///< the control whose next change may be part of this
    std::int64_t time;              ///< of the last change in it
  };
  using Entries = std::deque<Entry>;

  /// An entry in the making.
  struct Action {
    Entry entry;
    Changes changes;
  };
  /// A handler that runs now. Another one may run in its wait.
  struct Running {
    int agreed = 0;  ///< questions of the tool that the operator had agreed to before
    bool isOperators = false;
    bool passedOver = false;
    bool opensFile = false;
    std::string name = {};
    std::optional<ThingKey> joins = {};
    std::optional<Filing> filing = {};  ///< of the operator's: before what it has changed
    Changes changes = {};
    std::vector<Action> inner = {};  ///< what ended in its waits
  };

  static std::vector<std::string> NamesOf(const Entries& entries);

  void Begins(const Control* control);
  void Over();
  void Gather();
  void NoteQuestion();
  void NoteSave();
  void Settle(Running handler);
  bool IsEntry(const Running& handler) const;
  static void Extend(Running& handler, Changes changes);
  std::optional<Action> ActionOf(Running& handler);
  std::string NameOf(const Running& handler, const Changes& changes) const;
  void Add(Action action);
  bool JoinsLatest(const Entry& entry) const;
  void AddBehind(Changes changes);
  void KeepAside();

  void Undo();
  void Redo();
  void Go(Entry entry, const Changes& changes, Entries& to);
  void ShowState();

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  Parts parts_;
  FilingCabinet cabinet_;
  Mirror mirror_;
  bool begun_ = false;
  bool waits_ = false;  ///< a handler has sent something and may wait for the unit
  std::vector<Running> running_;
  Entries undo_;   ///< latest at the end
  Entries redo_;   ///< next at the end
  Changes aside_;  ///< no entry, and made while there was something to redo
  Listening<const Control*> begins_;
  Listening<const std::string&> named_;
  Listening<> over_;
  Listening<> asking_;
};

}  // namespace marlinset
