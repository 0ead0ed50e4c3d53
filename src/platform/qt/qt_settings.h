// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSettings>
#include <string>

#include "platform/settings_store.h"

namespace marlinset {

/// The settings in a text file of sections and keys, shared by the programs of one user. A store that cannot
/// be written keeps what is saved for as long as the program runs.
class QtSettings : public SettingsStore {
 public:
  /// The user's own store, 7340-Marlinset.ini in the folder for configuration ($XDG_CONFIG_HOME, ~/.config).
  QtSettings();
  /// The store in a file; one that does not exist holds no settings yet.
  explicit QtSettings(const std::string& file);

  std::string GetSetting(std::string_view key, std::string_view defaultValue) const override;
  /// Writes to the file at once.
  void SaveSetting(std::string_view key, std::string_view value) override;

 private:
  explicit QtSettings(const QString& file);
  QString StoredKey(std::string_view key) const;

  QSettings settings_;
};

}  // namespace marlinset
