// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>

#include "controls/pending_edit.h"
#include "controls/signal.h"
#include "controls/timer.h"
#include "platform/work_keeper.h"

namespace marlinset {

class ConfigurationFile;
class FrmStart;
class UnsavedChanges;
struct Platform;
struct Variables;

/// Preserves a composition if the tool dies. Stores unsaved changes in the user's data folder, never in the
/// operator's files, and offers them at the next start. Stores within two seconds of an edit if the operator
/// pauses and no exchange with the unit is under way, and every half minute in any case. Does nothing on a
/// platform without a keeper, or while nothing changes.
class Recovery {
 public:
  Recovery(Platform& platform, Variables& variables, FrmStart& form, ConfigurationFile& file,
           UnsavedChanges& changes);

  /// The operator sees these edits as done although they have not reached the panels: they are kept, too.
  /// `changed`, which must outlive this, is raised when there may be others.
  void IncludePending(std::function<PendingEdits()> pending, Signal<>& changed);

  /// At start: asks about each composition left behind, latest first, until the operator takes one, and sets
  /// those declined aside.
  void Offer();
  /// Whether the operator took one.
  bool Restored() const { return restored_; }
  /// Unsaved work is kept from now on.
  void Begin();
  /// Another configuration is about to replace the present one. Leaves what a failed save has not stored for
  /// the next start.
  void BeforeReplacing();
  /// The operator does not want the changes.
  void Discard();
  /// The run ends: leaves work that is not stored for the next one.
  void End();
  /// The run may end at any moment: keeps what is unsaved now.
  void KeepNow();
  /// The run ends at once and nobody can be asked: leaves what is unsaved for the next one.
  void Leave();

 private:
  void NoteChange();
  bool LineBusy() const;
  void KeepOrDrop();
  void Keep();
  bool EditsPending() const;
  bool Restore(const LeftWork& left);

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  ConfigurationFile& file_;
  UnsavedChanges& changes_;
  std::function<PendingEdits()> pending_ = [] { return PendingEdits(); };
  std::optional<Listening<>> pendingChanged_;
  Timer rest_;  ///< runs from the last edit, ticks if no other follows
  Timer most_;  ///< runs from the first edit that is not kept yet
  bool begun_ = false;
  bool saveFailed_ = false;  ///< the last save has left edits unstored
  bool discarded_ = false;
  bool restored_ = false;
  bool told_ = false;  ///< the operator knows that nothing can be kept
  std::optional<UnsavedWork> kept_;
};

}  // namespace marlinset
