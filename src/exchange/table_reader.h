// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/setup_tables.h"

namespace marlinset {

/// What a table says about the setup.
struct TableContent {
  std::vector<PanelValue> values;    ///< whether the panels have them already or not
  std::vector<std::string> unknown;  ///< rows that the panel lacks: "2.7", a window's name
};

/// Reads a table with its columns in any order; a value without a column stays as it is. A parameter is known
/// by Class and Parameter, a window by Name, by Number or by both. Throws TableError, with the number of the
/// line, for what ReadCsv refuses, columns that are unknown, doubled or missing, doubled rows, what is no
/// number or out of range, a tick that the window cannot have, and a name or number of several windows.
TableContent ReadTable(TableKind kind, std::string_view text, const Variables& variables,
                       const FrmStart& form);

/// Reads values of parameters alone, one a line. Throws TableError if there is none, or anything else.
std::vector<int> ReadValues(std::string_view text);

}  // namespace marlinset
