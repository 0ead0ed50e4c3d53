// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <utility>

#include "platform/mdb/jet_table.h"
#include "platform/mdb/jet_value.h"

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

/// Walks the pages of a table in rising order, and the rows of each page in the order of its directory.
/// The library's own walk gives rows that have grown and moved in a place that is not theirs.
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

  /// Where a row of the current page stands.
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

  /// Goes to the page that a moved row is on. There it is marked as deleted, so that a walk gives it once.
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

  void ReadRow(const Place& place) {
    const int cells = CheckRow(place);
    std::array<MdbField, MDB_MAX_COLS> fields{};
    const int cracked =
        mdb_crack_row(table_.Definition(), place.start, static_cast<std::size_t>(place.size), fields.data());
    const auto columns = table_.Columns();
    file_.Check(cracked >= 0 && static_cast<std::size_t>(cracked) == columns.size(), "a row is damaged");
    auto& row = set_.rows.emplace_back();
    row.reserve(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const MdbField& field = fields.at(i);
      // A row written before its column was added holds nothing of it.
      if (field.is_null != 0 || columns[i]->col_num >= cells) {
        row.push_back(NullOf(*columns[i]));
        continue;
      }
      file_.Check(
          field.siz >= 0 && field.start >= place.start && field.start + field.siz <= place.start + place.size,
          "a value is outside its row");
      row.push_back(JetValue(file_, *columns[i], field));
    }
  }

  /// A row begins with its number of columns and ends with a bit for each of them; before the bits stands the
  /// number of texts, and before that where each text starts and where the last one ends. Gives the number of
  /// columns.
  int CheckRow(const Place& place) const {
    const int cells = file_.Int16(place.start);
    file_.Check(cells >= 1 && cells <= MDB_MAX_COLS, "a row is damaged");
    int needed = 2 + (cells + 7) / 8;
    if (table_.Definition()->num_var_cols > 0) {
      needed += 2;
      file_.Check(needed <= place.size, "a row is damaged");
      const int texts = file_.Int16(place.start + place.size - needed + 2);
      file_.Check(texts <= cells, "a row is damaged");
      needed += 2 * (texts + 1);
    }
    file_.Check(needed <= place.size, "a row is damaged");
    return cells;
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
