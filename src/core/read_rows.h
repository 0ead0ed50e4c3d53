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

/// An open table or query, and the database that it needs as long as it is open. Failures of the constructor:
/// 3024, 3343, 3078.
struct OpenTable {
  OpenTable(DataEngine& engine, const std::string& path, std::string_view nameOrQuery);
  std::unique_ptr<Database> database;
  std::unique_ptr<Recordset> rows;
};

/// Says of the current row whether it is read.
using RowFilter = bool (*)(const Recordset& row);
bool EveryRow(const Recordset& row);
/// Rows whose "Device" is 0 belong to no unit any more.
bool HasDevice(const Recordset& row);
/// The same for tables that hold "Device" as text, sometimes with blanks before the number.
bool HasDeviceText(const Recordset& row);

/// What a reading does about failures once its table is open.
enum class OnFailure {
  kCarryOn,  ///< passes over the statement that failed: a field stays empty, 0 or False, a row is left out
  kThrow,  ///< leaves them to the caller. Only the field of a column that is missing stays empty, 0 or False
};

/// Runs one statement of a reading. Failure `harmless` is passed over in any case.
template <class Statement>
void Attempt(OnFailure onFailure, const Statement& statement, int harmless = 0) {
  try {
    statement();
  } catch (const RuntimeError& failure) {
    if (onFailure == OnFailure::kThrow && failure.Number() != harmless) throw;
  }
}

/// The rows that `keep` lets through. A table without rows gives none under kCarryOn, failure 3021 under
/// kThrow.
template <class Rec>
std::vector<Rec> ReadRows(Recordset& rows, RowFilter keep, OnFailure onFailure) {
  std::vector<Rec> records;
  Attempt(onFailure, [&] { rows.MoveFirst(); });
  for (int left = rows.RecordCount(); left > 0; --left) {
    // A device that cannot be read is no device: a database without the column shows no windows at all rather
    // than those of units long gone.
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
