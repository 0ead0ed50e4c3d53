// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/settings_store.h"

// The settings of the tool: their keys, and what each reads as until it is saved for the first time.

namespace marlinset {

struct Setting {
  std::string_view key;
  std::string_view byDefault = {};  ///< empty also where the reader works it out
};

/// Folder used last, with its trailing separator; by default the program's, see LastFolder.
inline constexpr Setting kFolderSetting{"Load"};
/// Configuration that a start opens; the default names the shipped one.
inline constexpr Setting kStartFileSetting{"Default", "None"};
/// Whether the last run ended in interactive mode.
inline constexpr std::string_view kInteractiveOn = "On";
inline constexpr std::string_view kInteractiveOff = "Off";
inline constexpr Setting kInteractiveSetting{"InMode", kInteractiveOff};
inline constexpr Setting kPortSetting{"Comm", "1"};
/// Model of the unit, as the menu Hardware Type has it.
inline constexpr std::string_view kModelPlain = "HD7340";
inline constexpr std::string_view kModelQ = "HD7340Q";
inline constexpr Setting kModelSetting{"HardwareType", kModelPlain};

/// Place and size of the window, in twips. The defaults follow from its content and the screen.
inline constexpr Setting kHeightSetting{"Height"};
inline constexpr Setting kWidthSetting{"Width"};
inline constexpr Setting kTopSetting{"Top"};
inline constexpr Setting kLeftSetting{"Left"};
inline constexpr Setting kLinkToolsSetting{"ComD", "0"};  ///< 1: the link test tools are shown
inline constexpr Setting kViewSetting{"Page", "0"};
inline constexpr Setting kTimeOutSetting{"Timer",
                                         "1"};  ///< of the status bar, as WindowSettings::SetTimer has it

/// The picture of the windows: 1 where it, its safe frames and the windows of the slate are shown; and the
/// still behind it.
inline constexpr Setting kPictureSetting{"Picture", "0"};
inline constexpr Setting kSafeFramesSetting{"SafeFrames", "0"};
inline constexpr Setting kSlateSetting{"PictureSlate", "0"};
inline constexpr Setting kStillSetting{"Background"};
/// 1 where the traffic on the line is shown.
inline constexpr Setting kTrafficSetting{"Traffic", "0"};
inline constexpr Setting kDocksSetting{"Docks"};  ///< how picture and traffic are docked

/// What ran last, for whoever looks into the file; the tool never reads them.
inline constexpr Setting kProgramFolderSetting{"AppPath"};
inline constexpr Setting kDatabaseVersionSetting{"DBVersion"};
inline constexpr Setting kProgramVersionSetting{"AppVersion"};

/// Device behind a port, 1 to 4; by default none is named.
inline std::string DeviceKey(int port) {
  return "Port" + std::to_string(port);
}
/// Entry 1 to 8 of the files used last; by default empty.
inline std::string RecentFileKey(int entry) {
  return "Recent" + std::to_string(entry);
}

inline std::string SettingText(const SettingsStore& settings, const Setting& setting) {
  return settings.GetSetting(setting.key, setting.byDefault);
}
inline int SettingNumber(const SettingsStore& settings, const Setting& setting) {
  return SettingNumber(settings, setting.key, setting.byDefault);
}
inline std::string LastFolder(const SettingsStore& settings, std::string_view programFolder) {
  return settings.GetSetting(kFolderSetting.key, programFolder);
}

}  // namespace marlinset
