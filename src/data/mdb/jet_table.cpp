// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/mdb/jet_table.h"

#include <cstddef>
#include <vector>

namespace marlinset {
namespace {

constexpr int kMostColumns = 255;
constexpr std::uint32_t kMostIndexes = 64;
/// 64 characters; the library converts names into a buffer of fixed size.
constexpr std::size_t kLongestName = 128;
constexpr int kMostDefinitionPages = 64;

constexpr int kNextPage = 4;
constexpr int kNextContent = 8;  // offset at which a definition continues on a further page
constexpr int kCellCount = 41;
constexpr int kColumnCount = 45;
constexpr int kIndexCount = 47;
constexpr int kTreeCount = 51;
constexpr int kUsageMap = 55;
constexpr int kFreeMap = 59;
constexpr std::size_t kFirstTree = 63;
constexpr std::size_t kTreeSize = 12;
constexpr std::size_t kColumnSize = 25;

/// The bytes of a definition, from all its pages.
std::vector<std::uint8_t> DefinitionBytes(JetFile& file, std::uint32_t page) {
  std::vector<std::uint8_t> bytes;
  for (int count = 0; page != 0; ++count) {
    file.Check(count < kMostDefinitionPages, "a table's definition does not end");
    file.ReadPage(page);
    file.Check(file.Byte(0) == MDB_PAGE_TABLE, "a table has no definition");
    const auto content = file.Page().subspan(count == 0 ? 0 : kNextContent);
    bytes.insert(bytes.end(), content.begin(), content.end());
    page = file.Int32(kNextPage);
  }
  return bytes;
}

}  // namespace

JetTable::JetTable(JetFile& file, std::uint32_t page)
    : page_(page), entry_(std::make_unique<MdbCatalogEntry>()) {
  CheckDefinition(file);
  entry_->mdb = file.Handle();
  entry_->object_type = MDB_TABLE;
  entry_->table_pg = page;
  definition_.reset(mdb_read_table(entry_.get()));
  file.Check(definition_ != nullptr, "a table's definition cannot be read");
  CheckUsageMap(file);
  file.Check(mdb_read_columns(Definition()) != nullptr, "a table's columns cannot be read");
  CheckColumns(file);
}

std::span<MdbColumn* const> JetTable::Columns() const {
  const GPtrArray* columns = definition_->columns;
  return {reinterpret_cast<MdbColumn**>(columns->pdata), columns->len};
}

void JetTable::CheckDefinition(JetFile& file) {
  const std::vector<std::uint8_t> bytes = DefinitionBytes(file, page_);
  file.ReadPage(page_);
  const int columns = file.Int16(kColumnCount);
  const std::uint32_t trees = file.Int32(kTreeCount);
  mostCells_ = file.Int16(kCellCount);
  file.Check(columns >= 1 && columns <= mostCells_ && mostCells_ <= kMostColumns,
             "a table has too many columns");
  file.Check(trees <= kMostIndexes && file.Int32(kIndexCount) <= kMostIndexes,
             "a table has too many indexes");
  for (const int map : {kUsageMap, kFreeMap}) file.CheckPage(file.Int32(map) >> 8);

  std::size_t at = kFirstTree + trees * kTreeSize + static_cast<std::size_t>(columns) * kColumnSize;
  for (int i = 0; i < columns; ++i) {
    file.Check(at + 2 <= bytes.size(), "a table's definition is not whole");
    const std::size_t length = bytes[at] + bytes[at + 1] * std::size_t{256};
    file.Check(length <= kLongestName, "a column's name is too long");
    at += 2 + length;
  }
  file.Check(at <= bytes.size(), "a table's definition is not whole");
}

/// A map of kind 0 is one run of bits after its first page; kind 1 is a list of pages full of bits.
void JetTable::CheckUsageMap(const JetFile& file) const {
  const std::span<const unsigned char> map{definition_->usage_map, definition_->map_sz};
  file.Check(map.data() != nullptr && map.size() >= 5 && map[0] <= 1,
             "the map of a table's pages is damaged");
  if (map[0] == 0) return;
  for (std::size_t at = 1; at + 4 <= map.size(); at += 4) {
    const auto page = static_cast<std::uint32_t>(mdb_get_int32(definition_->usage_map, static_cast<int>(at)));
    if (page != 0) file.CheckPage(page);
  }
}

void JetTable::CheckColumns(const JetFile& file) const {
  file.Check(definition_->columns != nullptr && definition_->columns->len == definition_->num_cols,
             "a table's columns cannot be read");
  // Columns that were deleted keep their numbers, and numbers of an open table never exceed one byte.
  for (const MdbColumn* column : Columns()) {
    file.Check(column->col_num >= 0 && column->col_num <= kMostColumns && column->row_col_num >= 0 &&
                   column->row_col_num <= kMostColumns && column->var_col_num <= kMostColumns &&
                   column->fixed_offset >= 0 && column->fixed_offset < JetFile::kPageSize &&
                   column->col_size >= 0 && column->col_size < JetFile::kPageSize,
               "a column's definition is damaged");
  }
}

}  // namespace marlinset
