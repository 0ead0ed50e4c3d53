// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sqlite3.h>

#include <stdexcept>
#include <string>

namespace marlinset {

/// Runs SQL statements on a database file, which is made when it is not there. Does not wait for the disk.
inline void RunSql(const std::string& path, const std::string& sql) {
  sqlite3* handle = nullptr;
  char* message = nullptr;
  const bool done = sqlite3_open(path.c_str(), &handle) == SQLITE_OK &&
                    sqlite3_exec(handle, ("PRAGMA synchronous = OFF;" + sql).c_str(), nullptr, nullptr,
                                 &message) == SQLITE_OK;
  const std::string reason = message == nullptr ? sqlite3_errmsg(handle) : message;
  sqlite3_free(message);
  sqlite3_close(handle);
  if (!done) throw std::runtime_error(reason + " in " + sql);
}

}  // namespace marlinset
