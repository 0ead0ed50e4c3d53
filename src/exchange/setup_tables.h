// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"
#include "exchange/comparison.h"
#include "exchange/take_over.h"

namespace marlinset {

class FrmStart;
struct Variables;

// Parameters and character windows as tables of text: files for spreadsheets, and the clipboard. Only what
// the operator sees takes part: not the parameters of internal classes, nor windows that the operating mode
// hides. Numbers are decimal, whatever the radix of the list.

enum class TableKind { kParameters, kWindows };
/// "parameters" or "windows".
std::string_view NameOf(TableKind kind);
/// Nothing for another name.
std::optional<TableKind> TableKindOf(std::string_view name);

/// What a column is there for.
enum class ColumnUse {
  kIdentity,  ///< identifies a row
  kText,      ///< for the reader only
  kValue,
};

struct TableColumn {
  std::string_view name;
  ColumnUse use = ColumnUse::kIdentity;
  std::string_view control = {};  ///< array of the spins or boxes that hold the value
  int least = std::numeric_limits<std::int16_t>::min();
  int most = std::numeric_limits<std::int16_t>::max();
  std::int16_t CharWindowRec::*room = nullptr;  ///< where this is 0, the window cannot have the tick
};
std::span<const TableColumn> ColumnsOf(TableKind kind);
// Places in ColumnsOf.
inline constexpr std::size_t kClassColumn = 0, kParameterColumn = 1, kValueColumn = 3;
inline constexpr std::size_t kNameColumn = 0, kNumberColumn = 1;

/// Which rows of the panel a table of this kind holds, by their number in the list.
std::vector<int> TableRows(TableKind kind, const Variables& variables, const FrmStart& form);
/// Those of the parameters, by what identifies them.
std::map<ParameterKey, int> RowsByParameter(const Variables& variables, const FrmStart& form);
/// The rows of these parameters, in the order given; leaves out what is not in the list.
std::vector<int> RowsOf(std::span<const ParameterKey> parameters, const Variables& variables,
                        const FrmStart& form);

/// A line of column names, then a line for each of these rows.
std::string TableOf(TableKind kind, std::span<const int> rows, char separator, const Variables& variables,
                    const FrmStart& form);

/// A value for a spin or check box of the panels.
struct PanelValue {
  std::string_view control;  ///< the array
  int row = 0;
  int value = 0;
};
/// The same by the names that configurations have for them: a sort moves rows.
std::vector<NewValue> NamedValues(std::span<const PanelValue> values, const Variables& variables,
                                  const FrmStart& form);
/// Those that the panels do not have, in the order of the panels.
std::vector<ComparedValue> DifferencesFrom(std::span<const NewValue> values, const Variables& variables,
                                           const FrmStart& form);
/// In how many windows or parameters these values are.
int CountRows(std::span<const ComparedValue> values);

}  // namespace marlinset
