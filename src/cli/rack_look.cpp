// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/rack_look.h"

#include <sys/stat.h>

#include <map>
#include <optional>
#include <stdexcept>
#include <vector>

#include "cli/configuration_input.h"
#include "cli/trial_load.h"
#include "platform/device_address.h"
#include "platform/posix/file_place.h"

namespace marlinset {
namespace {

void Note(Rack& rack, std::size_t unit, const std::string& reason) {
  rack.mistakes.push_back({unit + 1, rack.units[unit].name, reason});
}

std::string NumberOf(std::size_t unit) {
  return "unit " + std::to_string(unit + 1);
}

/// A path behind its links, and the device's number, which is the same for two nodes of one device. Worked
/// out once for each unit: every pair is compared.
struct Place {
  explicit Place(const RackUnit& unit) : address(IsAddress(unit.port)), path(unit.port) {
    struct stat status {};
    if (address || path.empty()) return;
    path = RealPath(unit.port);
    if (::stat(path.c_str(), &status) == 0 && S_ISCHR(status.st_mode)) device = status.st_rdev;
  }
  bool operator==(const Place& other) const {
    if (path.empty() || address != other.address) return false;
    if (address) return SameDevice(path, other.path);
    return path == other.path || (device && device == other.device);
  }

  bool address;
  std::string path;
  std::optional<dev_t> device;
};

/// Why no setup can come from the file; empty if it can be loaded.
std::string FaultOf(const std::string& file, TrialLoad& trial) {
  try {
    ReadConfiguration(file);
    trial.Load(file);
    return {};
  } catch (const std::exception& fault) {
    return fault.what();
  }
}

}  // namespace

void LookForTwins(Rack& rack) {
  const std::vector<Place> places(rack.units.begin(), rack.units.end());
  for (std::size_t i = 0; i < rack.units.size(); ++i) {
    const RackUnit& unit = rack.units[i];
    std::size_t name = 0;
    while (rack.units[name].name != unit.name) ++name;
    std::size_t device = 0;
    while (device < i && !(places[device] == places[i])) ++device;
    if (name < i && !unit.name.empty()) Note(rack, i, NumberOf(name) + " has this name, too");
    if (device < i) {
      Note(rack, i,
           unit.port + " is the device of " + NumberOf(device) + " (" + rack.units[device].name + "), too");
    }
  }
}

void TryToLoad(Rack& rack, const CommonOptions& options) {
  CommonOptions own = options;
  own.settingsFile = "/dev/null";
  std::optional<TrialLoad> trial;
  std::map<std::string, std::string> faults;  // by file, which many units may share
  for (std::size_t i = 0; i < rack.units.size(); ++i) {
    const std::string& file = rack.units[i].file;
    if (file.empty()) continue;
    if (!trial) trial.emplace(own);
    if (!trial->Started())
      throw std::runtime_error(trial->Boxes().empty() ? "the start failed" : trial->Boxes().back());
    const auto [place, isNew] = faults.try_emplace(file);
    if (isNew) place->second = FaultOf(file, *trial);
    if (!place->second.empty()) Note(rack, i, place->second);
  }
}

}  // namespace marlinset
