// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <string>

#include "base/runtime_error.h"
#include "platform/settings_store.h"

namespace marlinset {

/// The settings in a text file of sections and keys (see settings_text.h), shared by the programs of one
/// user. A run reads it once, at its start, and after that only what it saved itself, so that no window
/// changes another's folder. If the file cannot be written, the settings last as long as the program
/// runs.
class SettingsFile : public SettingsStore {
 public:
  /// A file that does not exist holds no settings yet; the null device never holds any. Throws kErrFileAccess
  /// for a file that can't be read, because it must not be overwritten.
  explicit SettingsFile(const std::string& path);

  std::string GetSetting(std::string_view key, std::string_view defaultValue) const override;
  /// Changes this key in the file at once and leaves the others as they are there now.
  void SaveSetting(std::string_view key, std::string_view value) override;

  /// Called the first time that the file can't be written.
  std::function<void(const RuntimeError&)> onNotWritten;

 private:
  void Write(std::string_view key, std::string_view value) const;

  std::string path_;  ///< empty for the null device
  std::map<std::string, std::string> values_;
};

}  // namespace marlinset
