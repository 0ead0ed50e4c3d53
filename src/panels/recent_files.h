// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/control_array.h"
#include "controls/control_types.h"

namespace marlinset {

class ConfigurationFile;
class FileCommands;
class FrmStart;
struct Platform;

/// The configurations last opened or saved, latest first, as entries of the File menu, kept in the settings
/// Recent1 to Recent8. Choosing one asks the same questions as Open. If it no longer exists, the operator is
/// told and it leaves the list.
class RecentFiles {
 public:
  static constexpr int kMost = 8;

  RecentFiles(Platform& platform, FrmStart& form, ConfigurationFile& file, FileCommands& commands);

  /// The main form's entries 1 to 8. Each has the file's full name as its caption and is hidden while unused.
  ControlArray<MenuItem> mnuRecent;

 private:
  void Note(const std::string& name);
  void Open(int index);
  void Drop(const std::string& name);
  void Keep();
  void Show();

  Platform& platform_;
  FileCommands& commands_;
  std::vector<std::string> names_;
};

}  // namespace marlinset
