// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/data_engine.h"
#include "data/mdb/jet_file.h"

namespace marlinset {

/// What a column holds where a row has nothing: NULL, and False for a yes or no, which has no NULL.
FieldValue NullOf(const MdbColumn& column);

/// The value of a field that is not NULL and lies inside the current page: a number or a text. A kind that
/// the tool reads nowhere (dates, pictures) is NULL. Failure 3343 for a number that has not all its bytes.
FieldValue JetValue(const JetFile& file, const MdbColumn& column, const MdbField& field);

}  // namespace marlinset
