// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "unit/unit_model.h"

namespace marlinset {

/// The unit's state and settings for people: a line for each setting received, beginning with its name. Codes
/// are those of the reference database, which the unit does not know.
std::string StateText(const UnitModel& unit);

/// "02030f0035b9"
std::string HexOf(const Bytes& bytes);

}  // namespace marlinset
