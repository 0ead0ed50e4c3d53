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
  /// Throws kErrNoCurrentRecord if there is no row.
  virtual void MoveFirst() = 0;
  virtual void MoveLast() = 0;
  /// Past the last row there is no current row.
  virtual void MoveNext() = 0;
  /// A column of the current row, by its name without regard to case. Throws kErrNoColumn if the table does
  /// not have the column, kErrNoCurrentRecord if there is no current row.
  virtual FieldValue Fields(std::string_view column) const = 0;
};

/// An open reference database, closed with its last owner. None outlives the routine that opened it.
class Database {
 public:
  virtual ~Database() = default;
  /// Opens a table by its name, with its rows in table order, or a query. Throws kErrNoTable if there is no
  /// such table, kErrBadDatabase if the file turns out to be damaged.
  virtual std::unique_ptr<Recordset> OpenRecordset(std::string_view nameOrQuery) = 0;
};

/// Opens reference databases, for reading only.
class DataEngine {
 public:
  virtual ~DataEngine() = default;
  /// Throws kErrNoDatabase if there is no such file, kErrBadDatabase if it is not a database.
  virtual std::unique_ptr<Database> OpenDatabase(const std::string& path) = 0;
};

/// Conversions for the loaders. NULL reads as empty, 0 and False.
std::string TextOf(const FieldValue& value);
/// Rounds to even. Throws Overflow outside 16 bits, TypeMismatch for a text that is not a number.
std::int16_t Int16Of(const FieldValue& value);
/// Throws TypeMismatch for a text that is not a number.
double DoubleOf(const FieldValue& value);
/// Any number except 0 is True, and so are the texts "True", "Yes" and "On".
bool BooleanOf(const FieldValue& value);

}  // namespace marlinset
