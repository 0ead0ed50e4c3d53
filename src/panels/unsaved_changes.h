// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "controls/signal.h"
#include "controls/timer.h"

namespace marlinset {

class ConfigurationFile;
class FrmStart;
struct Platform;
struct Variables;

/// The tool's account of what is stored: whether the panels hold a composition that no file holds. It goes by
/// the bytes that a file would have, so a value that is set back by hand is no change. ConfigSaved is no such
/// account: routing, VITC mode, video standard and down converter leave it alone, and the commands set it
/// after a save whatever became of it.
class UnsavedChanges {
 public:
  UnsavedChanges(Platform& platform, const Variables& variables, FrmStart& form, ConfigurationFile& file);

  /// Another composition has come that nobody can lose: the defaults, or what was just read. The account
  /// begins with the first.
  void CountAsStored();
  /// What the panels hold is in no file, whatever was read: work of a run that died.
  void CountAsUnsaved();

  /// The panels hold something else than what was stored, read or begun with last.
  bool Modified() const;

  /// The composition, or whether it is modified, is another one: at once when it was stored or replaced, soon
  /// after an edit, also while that edit's message waits for the unit.
  Signal<> Changed;

 private:
  using Bytes = std::vector<std::uint8_t>;

  /// The bytes of a file of the panels; nothing while a value is beyond what a file can hold.
  std::optional<Bytes> Composition() const;
  bool IsUnsaved(const std::optional<Bytes>& composition) const;
  void Look();

  const Variables& vars_;
  FrmStart& form_;
  ConfigurationFile& file_;
  Timer timer_;
  Listening<> touched_;
  bool begun_ = false;
  bool unsaved_ = false;         ///< in no file, whatever its bytes are
  std::optional<Bytes> stored_;  ///< the composition as it was last begun with, read or stored
  std::optional<Bytes> seen_;    ///< what was told last, and whether it was modified
  bool seenModified_ = false;
};

}  // namespace marlinset
