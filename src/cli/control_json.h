// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/json.h"
#include "controls/control.h"

namespace marlinset {

/// The state of a control as a script shows it: name, kind, and whichever its kind has of text, index, list,
/// value, min, max, increment, checked, enabled, visible, color and picture. A caption appears as text.
Json ControlJson(const Control& control);

}  // namespace marlinset
