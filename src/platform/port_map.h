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

/// Maps the port numbers 1 to 4 to devices. A number belongs to the path or address (device_address.h) that
/// the command line names for it, otherwise to that of the setting "Port1" to "Port4", otherwise to a device
/// that was found. Found devices get the remaining numbers in natural order, each only one number. A found
/// device keeps its number as long as the program runs, even while it is unplugged: the operator chose a
/// device by that number, and no other device may take its place.
class PortMap {
 public:
  /// A path or an address for each port number, empty for none; element 0 is port 1.
  using Paths = std::array<std::string, kHighestPort>;
  /// Lists the devices present now, in any order.
  using Finder = std::function<std::vector<std::string>()>;

  PortMap(const Paths& explicitPaths, const SettingsStore& settings, Finder finder);

  /// A map of devices that are named once and for all.
  explicit PortMap(const Paths& paths) : chosen_(paths), finder_([] { return std::vector<std::string>{}; }) {}

  /// Looks for new devices. They get free numbers or, if none are left, the numbers of devices that have
  /// gone.
  void Refresh();
  /// The device behind a port number, empty if there is none.
  std::string Device(int port) const;

  /// The devices that a search finds now, in natural order.
  std::vector<std::string> Found() const;
  /// The device that command line or settings name for a port, 1 to 4; empty if the search decides.
  const std::string& Chosen(int port) const {
    return chosen_.at(static_cast<std::size_t>(port - kLowestPort));
  }
  /// Whether the command line names it; then no setting counts.
  bool Fixed(int port) const { return fixed_.at(static_cast<std::size_t>(port - kLowestPort)); }
  /// Gives a port another device, or leaves it to the search with an empty one. Does not touch the settings.
  void Choose(int port, const std::string& device);

 private:
  std::string* NumberFor(const std::vector<std::string>& present);

  Paths chosen_;
  std::array<bool, kHighestPort> fixed_{};
  Paths found_;
  Finder finder_;
};

/// Orders names as people count: "ttyUSB2" before "ttyUSB10".
bool NaturalLess(std::string_view a, std::string_view b);

/// The failure when a port number without a device is opened (kErrPort).
RuntimeError NoDeviceBehind(int port);
/// What other failures of an opening begin with: "Port 1 cannot be opened: ".
std::string CannotBeOpened(int port);

}  // namespace marlinset
