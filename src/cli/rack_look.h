// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/rack.h"

namespace marlinset {

/// Notes units that have the name or the device of one before them.
void LookForTwins(Rack& rack);

/// Loads each unit's configuration into a tool without a line, and notes what cannot be loaded, and an
/// operating mode that does not exist. Throws std::runtime_error if that tool does not start.
void TryToLoad(Rack& rack, const CommonOptions& options);

}  // namespace marlinset
