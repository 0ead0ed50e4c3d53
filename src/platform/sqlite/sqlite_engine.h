// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "platform/data_engine.h"

namespace marlinset {

/// Reference databases as SQLite files, opened for reading only. Every opening checks the whole file, so
/// that a damaged one is refused (3343) instead of giving wrong rows; the files are small.
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
  std::unique_ptr<Database> OpenDatabase(const std::string& path) override;
};

}  // namespace marlinset
