// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <string>

#include "data/data_engine.h"
#include "data/row_set.h"
#include "data/sqlite/sqlite_snapshot.h"

namespace marlinset {

/// What a reference database may cost. One that wants more is refused (3343) with a message.
struct SqliteLimits {
  std::chrono::milliseconds time{2000};  ///< for the check of a file, and for each table or query
  std::size_t rows = kMostRows;          ///< of a table or query
  int columns = 255;                     ///< of a table, as Access has it
  std::size_t bytes = 64 << 20;          ///< of the file, and of the values of a table or query
};

/// Reference databases as SQLite files. They belong to somebody: a file is taken into memory as it is when it
/// is opened (sqlite_snapshot.h), and nothing that somebody put into it is carried out. Only tables are read;
/// views and virtual tables are none, and a table with computed columns is refused (3343).
///
/// An opening checks the whole file, so that a damaged one is refused (3343) instead of giving wrong rows. A
/// file that was found whole is not checked again until it was written to. Whoever brings a new one can put
/// it in its place while the tool runs.
///
/// A text that begins with "select" is a query and is run as it stands; any other is the name of a table,
/// found without regard to case, whose rows come in the order in which they were put in. Queries compare
/// texts without regard to case, and NULL is neither equal nor unequal to anything: as the units' databases
/// have always done.
///
/// A recordset holds all its rows; it needs neither file nor database any more. A query that names a column
/// that is not there is failure 3265, one that is no query is failure 51.
class SqliteEngine : public DataEngine {
 public:
  SqliteEngine() = default;
  explicit SqliteEngine(const SqliteLimits& limits) : limits_(limits) {}

  std::unique_ptr<Database> OpenDatabase(const std::string& path) override;

 private:
  SqliteLimits limits_;
  std::map<std::string, SqliteStamp> whole_;  ///< files found whole, by path
};

}  // namespace marlinset
