// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace marlinset {

class Tool;
class UnitMemory;

/// Where the unit does not hold what the panels show, after a whole send of which every message was
/// acknowledged. Empty when it holds all of it.
std::vector<std::string> DifferencesToUnit(const Tool& tool, const UnitMemory& unit);

}  // namespace marlinset
