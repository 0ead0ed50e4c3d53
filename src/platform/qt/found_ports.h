// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace marlinset {

/// The paths of the serial devices that are present, in no particular order, never pseudo terminals.
std::vector<std::string> FoundPorts();

}  // namespace marlinset
