// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/row_set.h"

#include <utility>

#include "base/text.h"

namespace marlinset {
namespace {

RuntimeError NoCurrentRecord() {
  return {kErrNoCurrentRecord, "No current record."};
}

class RowSetRecordset : public Recordset {
 public:
  explicit RowSetRecordset(RowSet set) : set_(std::move(set)) {}

  int RecordCount() const override { return static_cast<int>(set_.rows.size()); }
  void MoveFirst() override { MoveTo(0); }
  void MoveLast() override { MoveTo(set_.rows.size() - 1); }
  void MoveNext() override {
    if (current_ >= set_.rows.size()) throw NoCurrentRecord();
    ++current_;
  }

  FieldValue Fields(std::string_view column) const override {
    const std::size_t index = set_.IndexOf(column);
    if (current_ >= set_.rows.size()) throw NoCurrentRecord();
    return set_.rows[current_][index];
  }

 private:
  void MoveTo(std::size_t row) {
    if (set_.rows.empty()) throw NoCurrentRecord();
    current_ = row;
  }

  RowSet set_;
  std::size_t current_ = 0;
};

}  // namespace

std::size_t RowSet::IndexOf(std::string_view column) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (EqualNoCase(columns[i], column)) return i;
  }
  throw NoColumn(column);
}

std::unique_ptr<Recordset> MakeRecordset(RowSet set) {
  return std::make_unique<RowSetRecordset>(std::move(set));
}

bool IsQuery(std::string_view nameOrQuery) {
  constexpr std::string_view kSelect = "select ";
  return EqualNoCase(nameOrQuery.substr(0, kSelect.size()), kSelect);
}

RuntimeError BadDatabase(const std::string& path, std::string_view reason) {
  return {kErrBadDatabase, "Unrecognized database '" + path + "': " + std::string(reason) + "."};
}

RuntimeError NoTable(std::string_view name) {
  return {kErrNoTable, "Couldn't find table '" + std::string(name) + "' in the database."};
}

RuntimeError NoColumn(std::string_view name) {
  return {kErrNoColumn, "Item '" + std::string(name) + "' not found in this collection."};
}

}  // namespace marlinset
