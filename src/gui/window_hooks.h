// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "controls/control_array.h"
#include "controls/control_types.h"
#include "gui/byte_log.h"

namespace marlinset {

class UnsavedChanges;

/// What the window asks of whoever put it together.
struct WindowHooks {
  /// The device behind a port number, empty when there is none.
  std::function<std::string(int)> deviceName = {};
  /// Whether the port that is ticked is open.
  std::function<bool()> portOpen = {};
  /// The port menu opens: devices may have come.
  std::function<void()> lookForDevices = {};
  /// Opens a configuration that the operator has dropped on the window.
  std::function<void(const std::string&)> openFile = {};
  /// Shows the user guide. At once, also while the tool waits for a unit: it changes nothing there.
  std::function<void()> showGuide = {};
  /// Entries of the File menu: the files last in use. Null without.
  ControlArray<MenuItem>* recentFiles = nullptr;
  /// Tells the byte log what goes out. Null without.
  FrameSignal* frameSent = nullptr;
  /// What the window's modified mark goes by. Null without.
  UnsavedChanges* changes = nullptr;
};

}  // namespace marlinset
