// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/load_arrays.h"
#include "tests/support/fake_computer.h"
#include "tests/support/sqlite_file.h"
#include "tests/support/temp_folder.h"

namespace marlinset {

/// As much of the tool as reads the reference database, with a database of its own in a temporary folder
/// until `variables.DatabasePath` says otherwise.
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

/// The texts of a column, from the row that is the current one to the last.
inline std::vector<std::string> ColumnOf(Recordset& rows, std::string_view column) {
  std::vector<std::string> texts;
  for (int i = 0; i < rows.RecordCount(); ++i, rows.MoveNext()) texts.push_back(TextOf(rows.Fields(column)));
  return texts;
}

/// The number of the failure that `action` ends with, 0 when it ends well.
template <class Action>
int FailureOf(Action&& action) {
  try {
    action();
  } catch (const RuntimeError& failure) {
    return failure.Number();
  }
  return 0;
}

}  // namespace marlinset
