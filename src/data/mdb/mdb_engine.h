// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "data/data_engine.h"

namespace marlinset {

/// Reference databases as delivered with units: Access files (Jet 4, Access 2000 to 2003), opened for reading
/// only. Opening a database checks header and catalog, opening a table reads all of it; an inconsistent file
/// is refused (kErrBadDatabase) instead of giving wrong rows.
///
/// Finds tables and columns without regard to case; rows come in the order in which the table holds them.
/// Queries have the form of row_query.h. Yes/no reads as 1 or 0; a column that holds neither numbers nor
/// texts nor yes/no reads as NULL.
class MdbEngine : public DataEngine {
 public:
  std::unique_ptr<Database> OpenDatabase(const std::string& path) override;
};

}  // namespace marlinset
