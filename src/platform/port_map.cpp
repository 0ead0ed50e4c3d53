// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/port_map.h"

#include <algorithm>

#include "base/text.h"
#include "platform/device_address.h"
#include "platform/settings_keys.h"

namespace marlinset {
namespace {

template <class Range>
bool Lists(const Range& devices, const std::string& device) {
  return std::any_of(devices.begin(), devices.end(), [&device](const std::string& listed) {
    return !listed.empty() && SameDevice(listed, device);
  });
}

/// Cuts leading digits off a name; zeros at their beginning don't count.
std::string_view CutNumber(std::string_view& name) {
  const auto digits =
      static_cast<std::size_t>(std::find_if_not(name.begin(), name.end(), IsDigit) - name.begin());
  std::string_view number = name.substr(0, digits);
  name.remove_prefix(digits);
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return number;
}

}  // namespace

PortMap::PortMap(const Paths& explicitPaths, const SettingsStore& settings, Finder finder)
    : chosen_(explicitPaths), finder_(std::move(finder)) {
  for (std::size_t i = 0; i < chosen_.size(); ++i) {
    fixed_[i] = !chosen_[i].empty();
    if (!fixed_[i]) chosen_[i] = settings.GetSetting(DeviceKey(kLowestPort + static_cast<int>(i)), "");
  }
  Refresh();
}

std::string* PortMap::NumberFor(const std::vector<std::string>& present) {
  for (const bool takeOver : {false, true}) {
    for (std::size_t i = 0; i < found_.size(); ++i) {
      if (!chosen_[i].empty()) continue;
      if (found_[i].empty() || (takeOver && !Lists(present, found_[i]))) return &found_[i];
    }
  }
  return nullptr;
}

std::vector<std::string> PortMap::Found() const {
  std::vector<std::string> present = finder_();
  std::sort(present.begin(), present.end(), NaturalLess);
  return present;
}

void PortMap::Refresh() {
  const std::vector<std::string> present = Found();
  for (const std::string& device : present) {
    if (Lists(chosen_, device) || Lists(found_, device)) continue;
    std::string* number = NumberFor(present);
    if (!number) return;
    *number = device;
  }
}

void PortMap::Choose(int port, const std::string& device) {
  const auto i = static_cast<std::size_t>(port - kLowestPort);
  chosen_.at(i) = device;
  found_[i].clear();
  for (std::string& found : found_) {
    if (Lists(chosen_, found)) found.clear();
  }
  Refresh();
}

std::string PortMap::Device(int port) const {
  if (port < kLowestPort || port > kHighestPort) return {};
  const auto i = static_cast<std::size_t>(port - kLowestPort);
  return chosen_[i].empty() ? found_[i] : chosen_[i];
}

bool NaturalLess(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    if (IsDigit(a[0]) && IsDigit(b[0])) {
      const std::string_view x = CutNumber(a);
      const std::string_view y = CutNumber(b);
      if (x.size() != y.size()) return x.size() < y.size();
      if (x != y) return x < y;
    } else {
      if (a[0] != b[0]) return a[0] < b[0];
      a.remove_prefix(1);
      b.remove_prefix(1);
    }
  }
  return a.size() < b.size();
}

RuntimeError NoDeviceBehind(int port) {
  const std::string number = std::to_string(port);
  return {kErrPort, "There is no device behind port " + number +
                        ". Plug in a serial adapter, or name its device with --com" + number +
                        "=PATH or the setting " + DeviceKey(port) + "."};
}

std::string CannotBeOpened(int port) {
  return "Port " + std::to_string(port) + " cannot be opened: ";
}

}  // namespace marlinset
