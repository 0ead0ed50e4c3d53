// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <utility>

#include "data/mdb/jet_table.h"
#include "data/mdb/jet_value.h"

namespace marlinset {
namespace {

constexpr int kOwner = 4;      // of a data page: the page of its table's definition
constexpr int kRowCount = 12;  // of a data page; the starts of the rows follow, 16 bits each
constexpr int kFirstRow = 14;
constexpr int kMostRowsOfAPage = 1000;
constexpr int kShortestRow = 4;
constexpr int kMostMoves = 8;

constexpr int kDeleted = 0x8000;
constexpr int kMoved = 0x4000;  // four bytes that say where the row is now
constexpr int kStartMask = 0x1fff;

/// Walks the pages of a table in rising order, and the rows of each page in the order of its directory. The
/// library's own walk returns rows that have grown and moved out of order.
class RowWalk {
 public:
  RowWalk(JetFile& file, const JetTable& table) : file_(file), table_(table) {
    for (const MdbColumn* column : table.Columns()) set_.columns.emplace_back(column->name);
  }

  RowSet Rows() && {
    std::uint32_t page = 0;
    while (NextPage(page)) {
      if (IsOfRows(page)) ReadRowsOf(page);
    }
    const std::size_t expected = table_.Definition()->num_rows;
    file_.Check(expected == 0 || expected == set_.rows.size(), "a table has lost rows");
    return std::move(set_);
  }

 private:
  struct Place {
    int start;
    int size;
    int flags;
  };

  bool NextPage(std::uint32_t& page) const {
    MdbTableDef* definition = table_.Definition();
    const gint32 next = mdb_map_find_next(file_.Handle(), definition->usage_map,
                                          static_cast<unsigned int>(definition->map_sz), page);
    if (next == 0) return false;
    file_.Check(next > 0 && static_cast<std::uint32_t>(next) > page, "the map of a table's pages is damaged");
    page = static_cast<std::uint32_t>(next);
    return true;
  }

  /// A table's map also names the pages of its definition and its indexes.
  bool IsOfRows(std::uint32_t page) {
    file_.ReadPage(page);
    const int kind = file_.Byte(0);
    if (kind == MDB_PAGE_TABLE || kind == MDB_PAGE_INDEX || kind == MDB_PAGE_LEAF) return false;
    CheckOwner();
    return true;
  }

  void CheckOwner() const {
    file_.Check(file_.Byte(0) == MDB_PAGE_DATA && file_.Int32(kOwner) == table_.DefinitionPage(),
                "a page of a table is damaged");
  }

  void ReadRowsOf(std::uint32_t page) {
    const int count = file_.Int16(kRowCount);
    for (int row = 0; row < count; ++row) {
      Place place = Find(row);
      if ((place.flags & kDeleted) != 0) continue;
      file_.Check(set_.rows.size() < kMostRows, "a table has too many rows");
      const bool moved = (place.flags & kMoved) != 0;
      if (moved) place = Follow(place);
      ReadRow(place);
      if (moved) file_.ReadPage(page);
    }
  }

  /// The place of a row in the current page.
  Place Find(int row) const {
    const int count = file_.Int16(kRowCount);
    file_.Check(count <= kMostRowsOfAPage && row < count && kFirstRow + 2 * count <= JetFile::kPageSize,
                "the rows of a page are damaged");
    int start = 0;
    std::size_t size = 0;
    file_.Check(mdb_find_row(file_.Handle(), row, &start, &size) == 0 && size <= JetFile::kPageSize,
                "the rows of a page are damaged");
    const Place place{start & kStartMask, static_cast<int>(size), start & ~kStartMask};
    if ((place.flags & kDeleted) == 0) {
      file_.Check(place.start >= kFirstRow + 2 * count && place.size >= kShortestRow &&
                      place.start + place.size <= JetFile::kPageSize,
                  "a row is outside its page");
    }
    return place;
  }

  /// Goes to the page of a moved row. It is marked as deleted there, so that a walk returns it only once.
  Place Follow(Place place) {
    for (int moves = 0; (place.flags & kMoved) != 0; ++moves) {
      file_.Check(moves < kMostMoves, "a moved row is nowhere");
      const std::uint32_t target = file_.Int32(place.start);
      file_.ReadPage(target >> 8);
      CheckOwner();
      place = Find(static_cast<int>(target & 0xff));
    }
    file_.Check(place.size >= kShortestRow && place.start + place.size <= JetFile::kPageSize,
                "a row is outside its page");
    return place;
  }

  /// A column that was added after the row was written is not in the row: its number is beyond the row's own.
  /// A column that was removed since is still in the row.
  void ReadRow(const Place& place) {
    const Cells cells = FindCells(place);
    auto& row = set_.rows.emplace_back();
    row.reserve(table_.Columns().size());
    for (const MdbColumn* column : table_.Columns()) {
      const bool isNull = column->col_num >= cells.count ||
                          (file_.Byte(cells.nullMask + column->col_num / 8) >> column->col_num % 8 & 1) == 0;
      row.push_back(isNull ? NullOf(*column) : JetValue(file_, *column, FieldOf(*column, place, cells)));
    }
  }

  /// How a row is laid out: its number of columns, the columns of fixed size, the texts, where each text
  /// starts and the last one ends (the first stands last), the number of texts, a bit for each column.
  struct Cells {
    int count;
    int texts;     ///< also 0 for a row written before the table had any
    int starts;    ///< offset in the page of the first text's start
    int nullMask;  ///< offset of the bits in the page
  };

  Cells FindCells(const Place& place) const {
    const int count = file_.Int16(place.start);
    file_.Check(count >= 1 && count <= table_.MostCells(), "a row is damaged");
    int needed = 2 + (count + 7) / 8;
    const int end = place.start + place.size;
    Cells cells{.count = count, .texts = 0, .starts = 0, .nullMask = end - needed + 2};
    const bool hasTexts = std::ranges::any_of(table_.Columns(), [&](const MdbColumn* column) {
      return column->is_fixed == 0 && column->col_num < count;
    });
    if (hasTexts) {
      needed += 2;
      file_.Check(needed <= place.size, "a row is damaged");
      cells.texts = file_.Int16(cells.nullMask - 2);
      cells.starts = cells.nullMask - 4;
      file_.Check(cells.texts <= count, "a row is damaged");
      needed += 2 * (cells.texts + 1);
    }
    file_.Check(needed <= place.size, "a row is damaged");
    return cells;
  }

  /// The place of a value. Yes/no values are in the bits and have no place.
  MdbField FieldOf(const MdbColumn& column, const Place& place, const Cells& cells) const {
    MdbField field{};
    if (column.col_type == MDB_BOOL) return field;
    int start = 2 + column.fixed_offset;
    int end = start + column.col_size;
    if (column.is_fixed == 0) {
      const int text = static_cast<int>(column.var_col_num);
      file_.Check(text < cells.texts, "a row is damaged");
      start = file_.Int16(cells.starts - 2 * text);
      end = file_.Int16(cells.starts - 2 * (text + 1));
    }
    file_.Check(start >= 2 && start <= end && end <= place.size, "a value is outside its row");
    field.value = file_.Handle()->pg_buf + place.start + start;
    field.siz = end - start;
    return field;
  }

  JetFile& file_;
  const JetTable& table_;
  RowSet set_;
};

}  // namespace

RowSet ReadRows(JetFile& file, const JetTable& table) {
  return RowWalk(file, table).Rows();
}

}  // namespace marlinset
