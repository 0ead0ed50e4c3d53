// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "files/configuration_file.h"
#include "panels/unsaved_changes.h"

namespace marlinset {

class FrmStart;
struct Platform;
struct Variables;

/// Which file the configuration belongs to, and what of it counts as stored. New and Open change that, and
/// going back behind them brings it back; a save changes it too, but no undo takes a save back.
struct Filing {
  std::string currentFile;
  std::string caption;  ///< of the main window
  std::string loadFolder;
  std::string configFolder;
  std::string chosenFile;  ///< in the file dialog
  ConfigurationFile::OpenFile open;
  UnsavedChanges::Stored stored;

  bool IsOfSameFile(const Filing& other) const;
  /// Whether nothing was read, stored or set to the defaults in between.
  bool HasSameStored(const Filing& other) const;
};

/// Reads and restores the filing of a tool.
class FilingCabinet {
 public:
  FilingCabinet(Platform& platform, Variables& variables, FrmStart& form, ConfigurationFile& file,
                UnsavedChanges& changes)
      : platform_(platform), vars_(variables), form_(form), file_(file), changes_(changes) {}

  Filing Present() const;
  /// A file that was written or read again since then may hold something else, so the configuration counts as
  /// unsaved.
  void Restore(const Filing& filing);

 private:
  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  ConfigurationFile& file_;
  UnsavedChanges& changes_;
};

}  // namespace marlinset
