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

/// The configurations last opened or saved, the latest first, as entries of the File menu. They live in the
/// settings Recent1 to Recent8. One that is chosen opens with the same questions as Open; one that is no
/// longer there is told and taken off the list.
class RecentFiles {
 public:
  static constexpr int kMost = 8;

  RecentFiles(Platform& platform, FrmStart& form, ConfigurationFile& file, FileCommands& commands);

  /// The main form's entries 1 to 8: each has the file's whole name as caption and is hidden while unused.
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
