// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/data_engine.h"

namespace marlinset {

/// Reference databases as SQLite files, opened for reading only. An opening checks the whole file, so that a
/// damaged one is refused (3343) instead of giving wrong rows. A file that was found whole is not read
/// through again until it was written to. It is open only as long as the Database lives: whoever brings a new
/// one can put it in its place while the tool runs.
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

 private:
  /// Tells one content of a file from another without reading it.
  struct Stamp {
    std::uintmax_t size = 0;
    std::filesystem::file_time_type written;
    bool operator==(const Stamp&) const = default;
  };
  static std::optional<Stamp> StampOf(const std::string& path);

  std::map<std::string, Stamp> whole_;  ///< files found whole, by path
};

}  // namespace marlinset
