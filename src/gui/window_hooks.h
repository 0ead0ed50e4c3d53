// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "controls/control_array.h"
#include "controls/control_types.h"
#include "gui/byte_log.h"

namespace marlinset {

class CompareCommand;
class HeldSettings;
class PictureRules;
class RemarkList;
class TableCommands;
class TrafficRules;
class UnsavedChanges;
class WholeSend;

/// What the window needs from the program that creates it.
struct WindowHooks {
  /// The device behind a port number, empty if there is none.
  std::function<std::string(int)> deviceName = {};
  /// Whether the ticked port is open.
  std::function<bool()> portOpen = {};
  /// The port menu opens: there may be new devices.
  std::function<void()> lookForDevices = {};
  /// Opens a configuration dropped on the window.
  std::function<void(const std::string&)> openFile = {};
  /// Shows the user guide at once, even while the tool waits for a unit, because that changes nothing there.
  std::function<void()> showGuide = {};
  /// The files last in use, for the File menu. May be null.
  ControlArray<MenuItem>* recentFiles = nullptr;
  /// Reports sent frames to the byte log. May be null.
  FrameSignal* frameSent = nullptr;
  /// Decides the window's modified mark. May be null.
  UnsavedChanges* changes = nullptr;
  /// What there is to remark on the setup. May be null.
  RemarkList* remarks = nullptr;
  /// What the unit holds, and the send that brings it up to date. Both or none.
  HeldSettings* held = nullptr;
  WholeSend* wholeSend = nullptr;
  /// Without it there is no picture of the windows. May be null.
  PictureRules* picture = nullptr;
  /// Compares other files with the panels. May be null.
  CompareCommand* compare = nullptr;
  /// Parameters and windows as tables. May be null.
  TableCommands* tables = nullptr;
  /// Without it there is no list of the traffic on the line. May be null.
  TrafficRules* traffic = nullptr;
};

}  // namespace marlinset
