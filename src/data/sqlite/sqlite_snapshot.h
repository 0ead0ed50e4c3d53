// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace marlinset {

struct CloseSqlite {
  void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
using SqliteHandle = std::unique_ptr<sqlite3, CloseSqlite>;

/// Tells one content of a database from another without reading it: size and time of its file, and of the
/// log in which changes may wait that are not in the file yet.
struct SqliteStamp {
  std::uintmax_t size = 0;
  std::uintmax_t logSize = 0;
  std::filesystem::file_time_type written;
  std::filesystem::file_time_type logWritten;

  bool operator==(const SqliteStamp&) const = default;
  /// False when it was written to just now, or its times can't be told: another write within the same tick
  /// of the file system's clock would leave no trace.
  bool Settled() const;
};

/// A database in this program's own memory, and which content of the file it is.
struct SqliteSnapshot {
  SqliteHandle handle;
  SqliteStamp stamp;
};

/// Takes a file of up to `mostBytes` into memory. It belongs to somebody: nothing is written beside it, so
/// that its folder may be one that can't be written, and nobody is kept from changing it for longer than that
/// takes. Changes that are finished but wait in the log count. Failure 3343 when it is no database, or
/// somebody is changing it all the while; `path` is how messages name it.
SqliteSnapshot TakeSnapshot(const std::string& path, std::uintmax_t mostBytes);

}  // namespace marlinset
