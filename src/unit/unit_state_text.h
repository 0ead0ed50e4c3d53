// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "unit/unit_model.h"

namespace marlinset {

/// What the unit is and holds, for people: a line for each setting that came, with its name in front. Codes
/// are those of the reference database, which the unit does not know.
std::string StateText(const UnitModel& unit);

/// "02030f0035b9"
std::string HexOf(const Bytes& bytes);

}  // namespace marlinset
