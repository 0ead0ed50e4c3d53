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

/// Distinguishes contents of a database without reading it: which file it is, size and times of the file, and
/// of the log that may hold changes which are not in the file yet.
struct SqliteStamp {
  std::string file;          ///< behind all links
  std::uintmax_t inode = 0;  ///< another one when the file was replaced
  std::int64_t changed = 0;  ///< when anything about the file changed last, in nanoseconds
  std::uintmax_t size = 0;
  std::uintmax_t logSize = 0;
  std::filesystem::file_time_type written;
  std::filesystem::file_time_type logWritten;

  bool operator==(const SqliteStamp&) const = default;
  /// False if it was written to just now, or its times are unknown: another write within the same tick of the
  /// file system's clock would leave no trace.
  bool Settled() const;
};

/// Whether a file still has the content of which `stamp` was taken, which was settled then, and nobody is in
/// the middle of changing it.
bool IsUnchanged(const std::string& path, const SqliteStamp& stamp);

/// A database in this program's own memory, and the stamp of the file content that it holds.
struct SqliteSnapshot {
  SqliteHandle handle;
  SqliteStamp stamp;
};

/// Copies a file of up to `mostBytes` into memory. The file is a stranger's: this writes nothing beside it,
/// so its folder may be read-only, and keeps others from changing it only while it copies. Finished changes
/// that wait in the log count. Throws kErrBadDatabase if it is not a database, or somebody keeps changing it;
/// messages name it by `path`.
SqliteSnapshot TakeSnapshot(const std::string& path, std::uintmax_t mostBytes);

}  // namespace marlinset
