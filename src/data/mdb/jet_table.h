// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "data/mdb/jet_file.h"
#include "data/row_set.h"

namespace marlinset {

/// One table of an Access file, as its definition page describes it:
///
/// | offset | what |
/// |---|---|
/// | 0 | kind of the page, 2; a long definition goes on at offset 8 of the page that offset 4 names |
/// | 16 | number of rows; some writers leave it 0 |
/// | 41 | number of columns that a row can have: a removed column keeps its place in the rows |
/// | 45, 47, 51 | number of columns (16 bits), of indexes and of their trees (32 bits) |
/// | 55, 59 | row (low byte) and page of the map of the table's pages, and of those with room |
/// | 63 | 12 bytes for each index tree, 25 for each column, then the columns' names with their lengths |
class JetTable {
 public:
  /// Reads the definition. Throws kErrBadDatabase if it is not safe to pass it to the library.
  JetTable(JetFile& file, std::uint32_t page);

  std::uint32_t DefinitionPage() const { return page_; }
  MdbTableDef* Definition() const { return definition_.get(); }
  std::span<MdbColumn* const> Columns() const;
  /// The number of columns that a row can have, including removed ones.
  int MostCells() const { return mostCells_; }

 private:
  struct Free {
    void operator()(MdbTableDef* definition) const { mdb_free_tabledef(definition); }
  };

  void CheckDefinition(JetFile& file);
  void CheckUsageMap(const JetFile& file) const;
  void CheckColumns(const JetFile& file) const;

  std::uint32_t page_;
  int mostCells_ = 0;
  std::unique_ptr<MdbCatalogEntry> entry_;  // the definition points to it
  std::unique_ptr<MdbTableDef, Free> definition_;
};

/// All rows of a table in table order. Throws kErrBadDatabase for any inconsistency: better no row than a
/// wrong one.
RowSet ReadRows(JetFile& file, const JetTable& table);

}  // namespace marlinset
