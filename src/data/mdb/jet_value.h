// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/data_engine.h"
#include "data/mdb/jet_file.h"

namespace marlinset {

/// The value of a column that a row lacks: NULL, but False for yes/no, which has no NULL.
FieldValue NullOf(const MdbColumn& column);

/// The value of a field that is not NULL and lies inside the current page: a number or a text. Types that the
/// tool never reads (dates, pictures) give NULL. Throws kErrBadDatabase for a number without all its bytes.
FieldValue JetValue(const JetFile& file, const MdbColumn& column, const MdbField& field);

}  // namespace marlinset
