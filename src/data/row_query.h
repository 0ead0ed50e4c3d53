// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "data/row_set.h"

namespace marlinset {

/// A query of the one form that the tool puts, for engines whose library has no queries:
/// `select * from TABLE [where COLUMN <> 'text'] [order by COLUMN]`, a name with blanks in square brackets.
struct RowQuery {
  std::string table;
  std::string column;    ///< empty: all rows
  std::string unwanted;  ///< rows with this text in `column` are left out
  std::string order;     ///< empty: table order

  /// Failure 51 for a text of any other form.
  static RowQuery Parse(std::string_view text);

  /// What the query gives of the rows of its table. Texts compare without regard to the case of A to Z, a
  /// NULL is neither equal nor unequal to a text, so its row is left out, and it sorts before everything.
  /// Rows of the same order keep their places. Failure 3265.
  RowSet Of(RowSet set) const;
};

}  // namespace marlinset
