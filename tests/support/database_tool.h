// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/guard.h"
#include "core/load_arrays.h"
#include "data/file_engine.h"
#include "data/mdb/mdb_engine.h"
#include "data/sqlite/sqlite_engine.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/fake_dialogs.h"
#include "tests/support/fake_file_dialog.h"
#include "tests/support/fake_printer.h"
#include "tests/support/memory_settings.h"
#include "tests/support/sqlite_file.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_files.h"
#include "tests/support/unit_line.h"

namespace marlinset {

/// As much of the tool as reads the reference database, with a database of its own in a temporary folder
/// until `variables.DatabasePath` says otherwise.
struct DatabaseTool {
  TempFolder folder;
  VirtualPump pump;
  UnitLine line{pump};
  SqliteEngine sqlite;
  MdbEngine access;
  FileEngine engine{sqlite, access};
  FakeDialogs dialogs;
  MemorySettings settings;
  Guard guard{dialogs};
  FakeFileDialog fileDialog;
  TestFiles files;
  FakePrinter printer;
  FakeDesktop desktop;
  Platform platform{pump,       line,  engine,  dialogs, settings,           guard,
                    fileDialog, files, printer, desktop, folder.Path() + "/"};
  Variables variables;
  ReferenceDatabase database{platform, variables};

  DatabaseTool() { variables.DatabasePath = folder.File(kDatabaseFile); }

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
