// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "data/row_set.h"

namespace marlinset {

/// A query of the only form that the tool uses, for engines whose library has no queries: `select * from
/// TABLE [where COLUMN <> 'text'] [order by COLUMN]`, names with blanks in square brackets.
struct RowQuery {
  std::string table;
  std::string column;    ///< empty: all rows
  std::string unwanted;  ///< rows with this text in `column` are left out
  std::string order;     ///< empty: table order

  /// Throws kErrInternal for a text of any other form.
  static RowQuery Parse(std::string_view text);

  /// Applies the query to the rows of its table. Texts compare without regard to the case of A to Z. A NULL
  /// is neither equal nor unequal to a text, so its row is left out, and it sorts first. Rows with equal
  /// order keep their places. Throws kErrNoColumn.
  RowSet Of(RowSet set) const;
};

}  // namespace marlinset
