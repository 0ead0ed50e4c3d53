// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/rack_look.h"

#include <sys/stat.h>

#include <map>
#include <optional>
#include <stdexcept>
#include <vector>

#include "base/text.h"
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

/// What two units share if their devices are one: the address in its one spelling; or the path behind its
/// links, and the number of the device, which is the same for two nodes of one device.
std::vector<std::string> KeysOf(const std::string& port) {
  if (port.empty()) return {};
  if (IsAddress(port)) {
    const std::string spelling = AddressSpelling(port);
    return spelling.empty() ? std::vector<std::string>() : std::vector{spelling};
  }
  std::vector<std::string> keys{RealPath(port)};
  struct stat status {};
  if (::stat(port.c_str(), &status) == 0 && S_ISCHR(status.st_mode))
    keys.push_back("device " + std::to_string(status.st_rdev));
  return keys;
}

/// The units so far, by what they may have in common.
class Seen {
 public:
  /// The first unit with one of these keys, if there was one; otherwise this one is the first.
  std::optional<std::size_t> Before(std::size_t unit, const std::vector<std::string>& keys) {
    std::optional<std::size_t> first;
    for (const std::string& key : keys) {
      const auto [place, isNew] = units_.try_emplace(key, unit);
      if (!isNew && !first) first = place->second;
    }
    return first;
  }

 private:
  std::map<std::string, std::size_t> units_;
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

/// A send would take the default mode in place of an unknown one.
void LookForMode(Rack& rack, const std::string& named, const Variables& variables) {
  if (named.empty() || FindOperatingMode(variables, named)) return;
  std::string known;
  for (const OperatingModeRec& mode : variables.OperatingModes)
    known += (known.empty() ? "" : ", ") + Quoted(mode.Name) + " or " + mode.ModeId;
  rack.mistakes.push_back({0, "",
                           "cannot be sent in the operating mode " + Quoted(named) +
                               ", which --command names: there are " + known});
}

}  // namespace

void LookForTwins(Rack& rack) {
  Seen names;
  Seen devices;
  for (std::size_t i = 0; i < rack.units.size(); ++i) {
    const RackUnit& unit = rack.units[i];
    if (!unit.name.empty()) {
      if (const auto twin = names.Before(i, {unit.name}))
        Note(rack, i, NumberOf(*twin) + " has this name, too");
    }
    if (const auto twin = devices.Before(i, KeysOf(unit.port))) {
      Note(rack, i,
           unit.port + " is the device of " + NumberOf(*twin) + " (" + rack.units[*twin].name + "), too");
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
    if (!trial) {
      trial.emplace(own);
      if (!trial->Started())
        throw std::runtime_error(trial->Boxes().empty() ? "the start failed" : trial->Boxes().back());
      LookForMode(rack, own.commandText, trial->tool.variables);
    }
    const auto [place, isNew] = faults.try_emplace(file);
    if (isNew) place->second = FaultOf(file, *trial);
    if (!place->second.empty()) Note(rack, i, place->second);
  }
}

}  // namespace marlinset
