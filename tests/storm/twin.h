// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "tests/support/tool_rig.h"

namespace marlinset {

/// Where a tool and its unit, whose every message was acknowledged, differ from a second tool that has loaded
/// the first one's configuration from a file, and from the unit to which it has sent all of it. Highlights
/// are left out: they come with an edit and go by themselves.
std::vector<std::string> DifferencesToTwin(const ToolRig& rig);

}  // namespace marlinset
