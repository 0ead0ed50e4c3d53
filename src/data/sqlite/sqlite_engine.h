// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

#include "data/data_engine.h"
#include "data/row_set.h"
#include "data/sqlite/sqlite_snapshot.h"

namespace marlinset {

/// What a reference database may cost. The engine refuses one that costs more (kErrBadDatabase).
struct SqliteLimits {
  std::chrono::milliseconds time{2000};  ///< for the check of a file, and for each table or query
  std::size_t rows = kMostRows;          ///< of a table or query
  int columns = 255;                     ///< of a table, as Access has it
  std::size_t bytes = 64 << 20;          ///< of the file, and of the values of a table or query
};

/// Reference databases as SQLite files. A file is a stranger's: the engine copies it into memory when it
/// opens it (sqlite_snapshot.h) and executes nothing that it contains. It reads only tables, ignores views
/// and virtual tables, and refuses tables with computed columns (kErrBadDatabase).
///
/// Opening checks all of the file, so that a damaged one is refused (kErrBadDatabase) instead of giving wrong
/// rows. The copy of an intact file is kept, since the tool opens its database for each table: it serves
/// until the file is written to, or another one takes its place.
///
/// A text that begins with "select" is a query and runs unchanged; any other text is the name of a
/// table, found without regard to case, whose rows come in the order of insertion. Queries compare texts
/// without regard to case, and NULL is neither equal nor unequal to anything, as in the units'
/// databases.
///
/// A recordset holds all its rows and no longer needs file or database. A query that names an unknown column
/// throws kErrNoColumn, a text that is not a valid query throws kErrInternal.
class SqliteEngine : public DataEngine {
 public:
  SqliteEngine() = default;
  explicit SqliteEngine(const SqliteLimits& limits) : limits_(limits) {}

  std::unique_ptr<Database> OpenDatabase(const std::string& path) override;

 private:
  SqliteLimits limits_;
  std::shared_ptr<Database> kept_;  ///< the copy of the file opened last, if nobody was changing that
  std::string keptPath_;
  SqliteStamp keptStamp_;
};

}  // namespace marlinset
