// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "controls/timer.h"
#include "platform/work_keeper.h"

namespace marlinset {

class ConfigurationFile;
class FrmStart;
class UnsavedChanges;
struct Platform;
struct Variables;

/// A composition outlives a tool that dies. One with unsaved changes is kept aside in the user's data
/// folder, never in the operator's files, and the next start offers it: within two seconds of an edit that
/// nobody continues, but not in the middle of an exchange with the unit, and every half minute in any case.
/// Does nothing on a platform without a keeper, and nothing while nothing changes.
class Recovery {
 public:
  Recovery(Platform& platform, Variables& variables, FrmStart& form, ConfigurationFile& file,
           UnsavedChanges& changes);

  /// At the start: asks for each composition that was left, the latest first, until the operator takes one;
  /// one that is not wanted is put away.
  void Offer();
  /// The operator took one.
  bool Restored() const { return restored_; }
  /// From now on unsaved work is kept.
  void Begin();
  /// Another configuration takes the place of the present one. What a failed save has not stored is left for
  /// the next start.
  void BeforeReplacing();
  /// The operator does not want the changes.
  void Discard();
  /// The run ends: work that is not stored stays for the next one.
  void End();
  /// The run may be over at any moment: what is unsaved now is kept.
  void KeepNow();
  /// The run is over at once, nobody can be asked: what is unsaved stays for the next one.
  void Leave();

 private:
  void NoteChange();
  bool LineBusy() const;
  void KeepOrDrop();
  void Keep();
  bool Restore(const LeftWork& left);

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  ConfigurationFile& file_;
  UnsavedChanges& changes_;
  Timer rest_;  ///< runs from the last edit, ticks when nobody continued
  Timer most_;  ///< runs from the first edit that is not kept
  bool begun_ = false;
  bool saveFailed_ = false;  ///< edits that the last save should have stored
  bool discarded_ = false;
  bool restored_ = false;
  bool told_ = false;  ///< that nothing can be kept
  std::optional<UnsavedWork> kept_;
};

}  // namespace marlinset
