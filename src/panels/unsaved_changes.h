// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "controls/signal.h"
#include "controls/timer.h"
#include "files/configuration_file.h"

namespace marlinset {

class FrmStart;
struct Platform;
struct Variables;

/// Whether the panels hold a composition that no file holds. Compares the bytes that a file would have, so a
/// value that is set back by hand is no change. ConfigSaved does not say that: routing, VITC mode, video
/// standard and down converter leave it alone, and the commands set it after every save, whatever the
/// outcome.
class UnsavedChanges {
 public:
  UnsavedChanges(Platform& platform, const Variables& variables, FrmStart& form, ConfigurationFile& file);

  /// The panels hold another composition that cannot be lost: the defaults, or that of `copy`. The account
  /// begins with the first.
  void CountAsStored(const ConfigurationFile::Copy& copy = {});
  /// What the panels hold is in no file, whatever was read: work of a run that died.
  void CountAsUnsaved();

  /// What the panels are compared with.
  struct Stored {
    std::shared_ptr<const std::vector<std::uint8_t>> composition;  ///< null: of a value beyond any file
    ConfigurationFile::Copy copy = {};                             ///< the file that had it, if one had
    bool nowhere = false;                                          ///< in no file any more
    bool saveMissed = false;  ///< a save since then failed, or left a title that may name no file
  };
  const Stored& GetStored() const { return stored_; }
  /// Compares with what counted before.
  void TakeStored(const Stored& stored);

  /// Whether the panels hold something other than what was last stored, read or started with, or a save has
  /// not stored what it should have.
  bool Modified() const;
  /// Whether the panels hold what was last stored, read or started with, and it can be had again. Says so
  /// again when undo leads back there, also after a failed save.
  bool IsStored() const;

  /// The composition has changed, or whether it is modified. Raised at once when it was stored or replaced,
  /// and soon after an edit, even while that edit's message waits for the unit.
  Signal<> Changed;

 private:
  using Bytes = std::vector<std::uint8_t>;

  /// The bytes that a file of the panels would have; empty while a value exceeds what a file can hold.
  std::optional<Bytes> Composition() const;
  bool IsStored(const std::optional<Bytes>& composition) const;
  void NoteRefused(SaveEnd end);
  void Look();

  const Variables& vars_;
  FrmStart& form_;
  ConfigurationFile& file_;
  Timer timer_;
  Listening<> touched_;
  bool begun_ = false;
  Stored stored_;              ///< the composition last started with, read or stored
  std::optional<Bytes> seen_;  ///< the composition at the last report
  bool seenModified_ = false;
};

}  // namespace marlinset
