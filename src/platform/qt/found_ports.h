// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace marlinset {

/// Paths of the serial devices present now, in no order. Pseudo terminals are never among them.
std::vector<std::string> FoundPorts();

}  // namespace marlinset
