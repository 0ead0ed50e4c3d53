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

/// The rows of a table or query, read whole, and the names of their columns.
struct RowSet {
  std::vector<std::string> columns;
  std::vector<std::vector<FieldValue>> rows;

  /// Place of a column in every row, found by its name without regard to case. Failure 3265.
  std::size_t IndexOf(std::string_view column) const;
};

/// A recordset over these rows; it needs neither file nor database.
std::unique_ptr<Recordset> MakeRecordset(RowSet set);

/// Whether the name that somebody wants to open is a query and not a table: it begins with "select".
bool IsQuery(std::string_view nameOrQuery);

/// The failures that all engines share: 3343, 3078 and 3265.
RuntimeError BadDatabase(const std::string& path, std::string_view reason);
RuntimeError NoTable(std::string_view name);
RuntimeError NoColumn(std::string_view name);

}  // namespace marlinset
