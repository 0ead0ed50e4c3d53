// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/storm/storm.h"

namespace marlinset {

/// A run of the tool in which the operator's mouse and keys do anything to the window, also while the tool
/// waits for a unit whose answers come late, twice or not at all. At the end the widgets have to show what
/// the controls hold, and after a whole send the unit too. The same seed is the same run.
StormReport RunWindowStorm(unsigned seed, bool trace = false);

}  // namespace marlinset
