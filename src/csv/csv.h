// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace marlinset {

/// One row of a table; each field is text in UTF-8.
struct CsvRow {
  std::size_t line = 0;  ///< of the file, from 1, on which the row begins
  std::vector<std::string> fields = {};
};

/// Why a text cannot be taken as a table, with the number of its line in front: "line 7: ...".
class TableError : public std::runtime_error {
 public:
  TableError(std::size_t line, const std::string& reason);
};

// Larger tables are a mistake: those of a setup have some hundred rows and less than ten columns.
inline constexpr std::size_t kMostCsvRows = 1'000'000;
inline constexpr std::size_t kMostCsvColumns = 100;

/// Reads a table and passes each row, the names of the columns first, to `take`, which may throw. The
/// separator is a comma, a semicolon or a tab: the one that the first row has most of, or that a line "sep=;"
/// in front of it names. Takes a byte order mark, fields in double quotes with separators, quotes and line
/// ends in them, and lines that end in LF, CR LF or CR; a blank line is no row, and empty fields after the
/// last named column are no fields. Throws TableError for text that is not UTF-8, zero bytes, quotes out of
/// place, a row with another number of fields than the first, and too large a table.
void ReadCsv(std::string_view text, const std::function<void(CsvRow& row)>& take);

/// The fields of a row, ended by LF; a field is put in quotes only if it has to be.
std::string CsvLine(std::span<const std::string> fields, char separator);

}  // namespace marlinset
