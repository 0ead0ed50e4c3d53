// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/runtime_error.h"
#include "platform/ms_comm.h"
#include "platform/settings_store.h"

namespace marlinset {

/// Which device stands behind each of the port numbers 1 to 4. A number belongs to the path that the command
/// line names for it, else to that of the setting "Port1" to "Port4", else to a device that was found. Found
/// devices go to the numbers without a choice in natural order, none of them to a second number. A found
/// device keeps its number as long as the program runs, also while it is unplugged: the operator chose a
/// device by that number, and no other may slip in behind it.
class PortMap {
 public:
  /// A path a port number, empty for none; element 0 is port 1.
  using Paths = std::array<std::string, kHighestPort>;
  /// Lists the devices present now, in any order.
  using Finder = std::function<std::vector<std::string>()>;

  PortMap(const Paths& explicitPaths, const SettingsStore& settings, Finder finder);

  /// Looks for devices that have come. They get free numbers; when there are none left, the numbers of
  /// devices that have gone.
  void Refresh();
  /// The device behind a port number, empty when there is none.
  std::string Device(int port) const;

 private:
  std::string* NumberFor(const std::vector<std::string>& present);

  Paths chosen_;
  Paths found_;
  Finder finder_;
};

/// Orders names as people count: "ttyUSB2" before "ttyUSB10".
bool NaturalLess(std::string_view a, std::string_view b);

/// The failure to open a port number without a device (kErrPort).
RuntimeError NoDeviceBehind(int port);

}  // namespace marlinset
