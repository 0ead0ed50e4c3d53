// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/runtime_error.h"
#include "data/data_engine.h"

namespace marlinset {

/// Far above anything a reference database holds; a file that claims more rows in one table is damaged.
constexpr std::size_t kMostRows = 100000;

/// All rows of a table or query, and the names of their columns.
struct RowSet {
  std::vector<std::string> columns;
  std::vector<std::vector<FieldValue>> rows;

  /// A column's place in every row, found by its name without regard to case. Throws kErrNoColumn.
  std::size_t IndexOf(std::string_view column) const;
};

/// A recordset of these rows; it needs neither file nor database.
std::unique_ptr<Recordset> MakeRecordset(RowSet set);

/// Whether the name to be opened is a query rather than a table: it begins with "select".
bool IsQuery(std::string_view nameOrQuery);

/// The failures that all engines share: kErrBadDatabase, kErrNoTable and kErrNoColumn.
RuntimeError BadDatabase(const std::string& path, std::string_view reason);
RuntimeError NoTable(std::string_view name);
RuntimeError NoColumn(std::string_view name);

}  // namespace marlinset
