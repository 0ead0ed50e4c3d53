// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace marlinset {

struct CommonOptions;

/// A unit of a rack: what is sent to it, and through which device.
struct RackUnit {
  std::string name;
  std::string port;  ///< an address, or the absolute path of a device
  std::string file;  ///< the absolute path of a configuration
};

/// What is wrong with a rack, and where.
struct RackMistake {
  std::size_t unit = 0;  ///< its number in the file, from 1; 0 for the file itself
  std::string name;      ///< of that unit; empty if it has none
  std::string reason;

  /// unit 2 (Stage 5): has no "port", its device or address
  std::string Text() const;
};

struct Rack {
  std::vector<RackUnit> units;        ///< in file order
  std::vector<RackMistake> mistakes;  ///< by units
};

/// Reads a rack file and looks at everything that can be known before anything is sent: its JSON, its
/// members, names and devices that occur twice, configurations that cannot be loaded. Relative paths count
/// from the folder of the file, those of a stream (/dev/stdin) from the present one. Touches no device.
/// Throws std::runtime_error if the tool that tries to load the configurations does not start.
Rack ReadRack(const std::string& path, const CommonOptions& options);

/// Keeps only the units with these names, in file order. A name that the rack lacks is a mistake.
void KeepOnly(const std::vector<std::string>& names, Rack& rack);

}  // namespace marlinset
