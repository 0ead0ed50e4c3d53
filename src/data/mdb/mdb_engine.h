// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "data/data_engine.h"

namespace marlinset {

/// Reference databases as the units were delivered with: Access files (Jet 4, Access 2000 to 2003), opened
/// for reading only. Opening looks at header and catalog, opening a table reads all of it; what does not hang
/// together is refused (3343) instead of giving wrong rows.
///
/// Tables and columns are found without regard to case; rows come in the order in which the table holds them.
/// Queries have the form of row_query.h. Yes or no is 1 or 0; a column of another kind than numbers, texts
/// and yes or no reads as NULL.
class MdbEngine : public DataEngine {
 public:
  std::unique_ptr<Database> OpenDatabase(const std::string& path) override;
};

}  // namespace marlinset
