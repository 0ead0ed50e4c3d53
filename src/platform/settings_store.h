// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marlinset {

/// The per-user settings of the tool: application "7340-Marlinset", section "Window", text values. Keys
/// ignore case; an empty value is a value. Several runs share one store. Each reads what it wrote itself,
/// otherwise what was there when it started, so that it never picks up another window's folder or list; it
/// writes its own keys without touching those of the others.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual std::string GetSetting(std::string_view key, std::string_view defaultValue) const = 0;
  virtual void SaveSetting(std::string_view key, std::string_view value) = 0;
};

/// A setting as an integer; a text that is not a number reads as 0.
int SettingNumber(const SettingsStore& settings, std::string_view key, std::string_view defaultValue);

}  // namespace marlinset
