// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/table_reader.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>

#include "base/text.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "csv/csv.h"

namespace marlinset {
namespace {

/// What the table says at a place, as far as it fits into a message.
std::string Excerpt(const std::string& text) {
  constexpr std::size_t kMostLetters = 40;
  return Quoted(LengthOf(text) > kMostLetters ? LeftOf(text, kMostLetters) + "..." : text);
}

/// Reads a whole number in the column's range. Throws TableError for anything else.
int NumberIn(const std::string& field, const TableColumn& column, std::size_t line) {
  const std::string text = Trim(field);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  if (whole && number >= column.least && number <= column.most) return number;
  const std::string range = column.most == 1 ? "0 or 1"
                                             : "a number from " + std::to_string(column.least) + " to " +
                                                   std::to_string(column.most);
  throw TableError(line, std::string(column.name) + " is " + Excerpt(text) + " and has to be " + range);
}

/// The name of a window as it is looked for.
std::string Sought(const std::string& name) {
  return UpperOf(Trim(name));
}

class TableReader {
 public:
  TableReader(TableKind kind, const Variables& variables, const FrmStart& form)
      : kind_(kind), columns_(ColumnsOf(kind)), vars_(variables) {
    if (kind_ == TableKind::kParameters) {
      parameters_ = RowsByParameter(variables, form);
    } else {
      windows_ = TableRows(kind, variables, form);
    }
  }

  /// The line of column names comes first.
  void Take(const CsvRow& row) {
    if (places_.empty()) return TakeColumns(row);
    const bool blank =
        std::ranges::all_of(row.fields, [](const std::string& field) { return Trim(field).empty(); });
    if (!blank) TakeRow(row);
  }

  TableContent Content() {
    if (places_.empty()) throw TableError(1, "the table is empty. Its first line names the columns");
    return std::move(content_);
  }

 private:
  /// A row of the table: how an operator names it, and which row of the panel it means.
  struct Target {
    std::string name;
    std::optional<int> row = {};
    std::optional<int> number = {};  ///< of a window that is not there
  };

  void TakeColumns(const CsvRow& row) {
    places_.resize(columns_.size());
    for (std::size_t place = 0; place < row.fields.size(); ++place) {
      const std::string name = Trim(row.fields[place]);
      const auto column = std::ranges::find_if(
          columns_, [&](const TableColumn& known) { return EqualNoCase(known.name, name); });
      if (column == columns_.end())
        throw TableError(row.line, "there is no column " + Excerpt(name) + ". The columns are " + Names());
      std::optional<std::size_t>& known = places_[static_cast<std::size_t>(column - columns_.begin())];
      if (known) throw TableError(row.line, "the column " + std::string(column->name) + " is there twice");
      known = place;
    }
    if (kind_ == TableKind::kParameters && !(places_[kClassColumn] && places_[kParameterColumn]))
      throw TableError(row.line, "the columns Class and Parameter have to say which parameter a row is for");
    if (kind_ == TableKind::kWindows && !places_[kNameColumn] && !places_[kNumberColumn])
      throw TableError(row.line, "a column Name or Number has to say which window a row is for");
  }

  std::string Names() const {
    std::string names;
    for (const TableColumn& column : columns_) {
      names += names.empty() ? "" : &column == &columns_.back() ? " and " : ", ";
      names += column.name;
    }
    return names;
  }

  void TakeRow(const CsvRow& row) {
    const Target target = kind_ == TableKind::kParameters ? Parameter(row) : Window(row);
    const std::pair place(
        target.row.value_or(kNoIndex),
        target.row ? "" : Sought(target.name) + "#" + std::to_string(target.number.value_or(0)));
    if (!seen_.insert(place).second) throw TableError(row.line, target.name + " is there twice");
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const TableColumn& column = columns_[i];
      if (column.use != ColumnUse::kValue || !places_[i]) continue;
      const int value = NumberAt(row, i);
      if (!target.row) continue;
      if (value != 0 && column.room && At(vars_.CharWindows, *target.row).*column.room == 0)
        throw TableError(row.line, target.name + " has no " + std::string(column.name) + " to switch on");
      content_.values.push_back({column.control, *target.row, value});
    }
    if (!target.row) content_.unknown.push_back(target.name);
  }

  Target Parameter(const CsvRow& row) const {
    const ParameterKey key{NumberAt(row, kClassColumn), NumberAt(row, kParameterColumn)};
    Target target{std::to_string(key.parameterClass) + "." + std::to_string(key.number)};
    if (const auto found = parameters_.find(key); found != parameters_.end()) target.row = found->second;
    return target;
  }

  Target Window(const CsvRow& row) const {
    std::optional<std::string> name;
    std::optional<int> number;
    if (places_[kNameColumn]) name = Trim(row.fields[*places_[kNameColumn]]);
    if (places_[kNumberColumn]) number = NumberAt(row, kNumberColumn);
    std::vector<int> fitting;
    for (const int place : windows_) {
      const CharWindowRec& window = At(vars_.CharWindows, place);
      if (name && Sought(window.Name) != Sought(*name)) continue;
      if (!number || window.Number == *number) fitting.push_back(place);
    }
    const std::string asked = name ? *name : std::to_string(*number);
    if (fitting.size() > 1) {
      throw TableError(row.line, "several windows are called " + Excerpt(asked) +
                                     ". Name and Number together have to tell them apart");
    }
    if (fitting.empty()) return {asked, {}, number};
    return {At(vars_.CharWindows, fitting.front()).Name, fitting.front()};
  }

  int NumberAt(const CsvRow& row, std::size_t column) const {
    return NumberIn(row.fields[*places_[column]], columns_[column], row.line);
  }

  TableKind kind_;
  std::span<const TableColumn> columns_;
  const Variables& vars_;
  std::map<ParameterKey, int> parameters_;  ///< rows of the panel
  std::vector<int> windows_;                ///< the same
  /// Of each column in the table; empty before its first line.
  std::vector<std::optional<std::size_t>> places_;
  std::set<std::pair<int, std::string>> seen_;
  TableContent content_;
};

}  // namespace

TableContent ReadTable(TableKind kind, std::string_view text, const Variables& variables,
                       const FrmStart& form) {
  TableReader reader(kind, variables, form);
  ReadCsv(text, [&](const CsvRow& row) { reader.Take(row); });
  return reader.Content();
}

std::vector<int> ReadValues(std::string_view text) {
  const TableColumn& value = ColumnsOf(TableKind::kParameters)[kValueColumn];
  std::vector<int> numbers;
  ReadCsv(text, [&](const CsvRow& row) {
    if (row.fields.size() > 1)
      throw TableError(row.line, "has several fields, and no line names the columns");
    numbers.push_back(NumberIn(row.fields.front(), value, row.line));
  });
  if (numbers.empty()) throw TableError(1, "there is nothing to paste");
  return numbers;
}

}  // namespace marlinset
