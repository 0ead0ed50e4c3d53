// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/recent_files.h"

#include <algorithm>

#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "files/configuration_file.h"
#include "panels/file_commands.h"
#include "platform/file_system.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {
RecentFiles::RecentFiles(Platform& platform, FrmStart& form, ConfigurationFile& file, FileCommands& commands)
    : mnuRecent(form, "mnuRecent", {1, 2, 3, 4, 5, 6, 7, 8}), platform_(platform), commands_(commands) {
  for (const int i : mnuRecent.Indices()) {
    std::string name = platform_.settings.GetSetting(RecentFileKey(i), "");
    // Two windows that wrote in turn may have stored one file twice.
    const bool listed = std::find(names_.begin(), names_.end(), name) != names_.end();
    if (!name.empty() && !listed) names_.push_back(std::move(name));
  }
  Show();
  mnuRecent.OnClick([this](int index) { Open(index); });
  file.InUse.Connect([this](const std::string& name) { Note(name); });
}

void RecentFiles::Note(const std::string& name) {
  std::erase(names_, name);
  names_.insert(names_.begin(), name);
  if (names_.size() > kMost) names_.resize(kMost);
  Keep();
}

void RecentFiles::Open(int index) {
  // A copy: opening the file changes the list.
  const std::string name = mnuRecent(index).Caption();
  if (platform_.files.FileExists(name)) {
    commands_.OpenNamed(name);
  } else {
    Drop(name);
    platform_.dialogs.Tell("The file " + name + " is no longer there. It has been taken off the list.");
  }
}

void RecentFiles::Drop(const std::string& name) {
  std::erase(names_, name);
  Keep();
}

void RecentFiles::Keep() {
  for (const int i : mnuRecent.Indices()) {
    const auto place = static_cast<std::size_t>(i - 1);
    const std::string name = place < names_.size() ? names_[place] : std::string();
    if (name != platform_.settings.GetSetting(RecentFileKey(i), ""))
      platform_.settings.SaveSetting(RecentFileKey(i), name);
  }
  Show();
}

void RecentFiles::Show() {
  for (const int i : mnuRecent.Indices()) {
    const auto place = static_cast<std::size_t>(i - 1);
    const bool used = place < names_.size();
    mnuRecent(i).SetCaption(used ? names_[place] : std::string());
    mnuRecent(i).SetVisible(used);
  }
}

}  // namespace marlinset
