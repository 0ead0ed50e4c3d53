// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "tests/support/tool_rig.h"

namespace marlinset {

/// Where a tool and its unit differ from a second tool, which has loaded the first one's configuration from a
/// file, and from the unit to which that one has sent it. Ignores highlights: they go by themselves.
std::vector<std::string> DifferencesToTwin(const ToolRig& rig);

}  // namespace marlinset
