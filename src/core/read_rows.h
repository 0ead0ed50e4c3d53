// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/runtime_error.h"
#include "core/record_columns.h"
#include "data/data_engine.h"

namespace marlinset {

/// An open table or query, together with the database that it needs while open. The constructor throws
/// kErrNoDatabase, kErrBadDatabase or kErrNoTable.
struct OpenTable {
  OpenTable(DataEngine& engine, const std::string& path, std::string_view nameOrQuery);
  std::unique_ptr<Database> database;
  std::unique_ptr<Recordset> rows;
};

/// Whether to read the current row.
using RowFilter = bool (*)(const Recordset& row);
bool EveryRow(const Recordset& row);
/// Rejects rows whose "Device" is 0: they no longer belong to any unit.
bool HasDevice(const Recordset& row);
/// The same for tables that store "Device" as text, sometimes with blanks before the number.
bool HasDeviceText(const Recordset& row);

/// What a reading does about failures once its table is open.
enum class OnFailure {
  kCarryOn,  ///< skips the statement that failed: a field stays empty, 0 or False, a row is left out
  kThrow,    ///< throws. Only the field of a missing column stays empty, 0 or False
};

/// Runs one statement of a reading. Ignores failure `harmless` in either case.
template <class Statement>
void Attempt(OnFailure onFailure, const Statement& statement, int harmless = 0) {
  try {
    statement();
  } catch (const RuntimeError& failure) {
    if (onFailure == OnFailure::kThrow && failure.Number() != harmless) throw;
  }
}

/// The rows that `keep` accepts. A table without rows yields none under kCarryOn; under kThrow it throws
/// kErrNoCurrentRecord.
template <class Rec>
std::vector<Rec> ReadRows(Recordset& rows, RowFilter keep, OnFailure onFailure) {
  std::vector<Rec> records;
  Attempt(onFailure, [&] { rows.MoveFirst(); });
  for (int left = rows.RecordCount(); left > 0; --left) {
    // An unreadable device counts as none: a database without the column shows no windows at all rather than
    // those of units long gone.
    bool kept = false;
    Attempt(onFailure, [&] { kept = keep(rows); });
    if (kept) {
      Rec& record = records.emplace_back();
      for (const RecordColumn<Rec>& column : Rec::kColumns) {
        Attempt(
            onFailure, [&] { ReadColumn(rows, column, record); }, kErrNoColumn);
      }
    }
    Attempt(onFailure, [&] { rows.MoveNext(); });
  }
  return records;
}

}  // namespace marlinset
