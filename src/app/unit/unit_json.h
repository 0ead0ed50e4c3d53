// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "unit/unit_model.h"

namespace marlinset {

/// The unit's state and settings as one line of JSON:
///
///   model, standard, manual, video, local, broadcast   the unit itself
///   held         the last fields of every setting that came, from the address on, by command; a command
///                with several settings has them by key: "CLASS/PARAMETER", a window's number, a selector
///   parameters   value by "CLASS/PARAMETER"            routing   code by selector
///   windows      by number: on, slate, doubleHeight, symbol, field, highlighted, row, position, length
///   vitc, whiteFlag, inserter, slate, message, converter, sdiProgramOut   null where nothing came
std::string StateJson(const UnitModel& unit);

}  // namespace marlinset
