// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace marlinset {

/// What a column of the current row holds; monostate is NULL.
using FieldValue = std::variant<std::monostate, std::int64_t, double, std::string>;

/// The rows of a table or query, with a current row.
class Recordset {
 public:
  virtual ~Recordset() = default;
  virtual int RecordCount() const = 0;
  /// Failure 3021 when there is no row.
  virtual void MoveFirst() = 0;
  virtual void MoveLast() = 0;
  /// Past the last row there is no current row.
  virtual void MoveNext() = 0;
  /// A column of the current row, by its name without regard to case. Failure 3265 for a column that the
  /// table does not have, 3021 when there is no current row.
  virtual FieldValue Fields(std::string_view column) const = 0;
};

/// An open reference database. Goes with its last owner; nothing of it outlives the routine that opened it.
class Database {
 public:
  virtual ~Database() = default;
  /// Opens a table by its name, rows in table order, or a query. Failure 3078 for a table that is not there,
  /// 3343 for a file that turns out to be damaged.
  virtual std::unique_ptr<Recordset> OpenRecordset(std::string_view nameOrQuery) = 0;
};

/// Opens reference databases, for reading only.
class DataEngine {
 public:
  virtual ~DataEngine() = default;
  /// Failure 3024 when there is no such file, 3343 when it is no database.
  virtual std::unique_ptr<Database> OpenDatabase(const std::string& path) = 0;
};

/// Conversions as the loaders want them. NULL reads as empty, 0 and False.
std::string TextOf(const FieldValue& value);
/// Failure 6 outside 16 bits, 13 for a text that is no number. A fraction is rounded to the even neighbour.
std::int16_t Int16Of(const FieldValue& value);
/// Failure 13 for a text that is no number.
double DoubleOf(const FieldValue& value);
/// Any number but 0 is True, and so are the texts "True", "Yes" and "On".
bool BooleanOf(const FieldValue& value);

}  // namespace marlinset
