// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sqlite3.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/load_arrays.h"
#include "tests/support/fake_computer.h"
#include "tests/support/temp_folder.h"

namespace marlinset {

/// Runs SQL on a database file, which it creates if necessary. Does not wait for the disk.
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

/// The part of the tool that reads the reference database, with a database of its own.
struct DatabaseTool : FakeComputer<> {
  TempFolder folder;
  Variables variables;
  ReferenceDatabase database{platform, variables};

  DatabaseTool() {
    platform.programFolder = folder.Path() + "/";
    variables.DatabasePath = folder.File(kDatabaseFile);
  }

  void Sql(const std::string& sql) const { RunSql(folder.File(kDatabaseFile), sql); }
};

/// The texts of a column, from the current row to the last.
inline std::vector<std::string> ColumnOf(Recordset& rows, std::string_view column) {
  std::vector<std::string> texts;
  for (int i = 0; i < rows.RecordCount(); ++i, rows.MoveNext()) texts.push_back(TextOf(rows.Fields(column)));
  return texts;
}

/// The failure that `action` ends with; number 0 and no words if it ends well.
template <class Action>
RuntimeError Failed(Action&& action) {
  try {
    action();
  } catch (const RuntimeError& failure) {
    return failure;
  }
  return {0, ""};
}
template <class Action>
int FailureOf(Action&& action) {
  return Failed(action).Number();
}

}  // namespace marlinset
