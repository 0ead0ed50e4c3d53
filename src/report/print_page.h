// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/choices.h"
#include "report/print_layout.h"

// What stands on the two pages, in tables: which controls of the main form, under which texts, in what order.
// Measures are millimetres.

namespace marlinset {

/// A value of a line: a control of the main form.
struct PrintedValue {
  constexpr PrintedValue() = default;
  constexpr PrintedValue(std::string_view name, int number = kNoIndex) : control(name), index(number) {}
  constexpr PrintedValue(ChoiceId id)
      : control(ChoiceOf(id).control), index(ChoiceOf(id).index), choice(id) {}

  std::string_view control = {};
  int index = kNoIndex;
  std::optional<ChoiceId> choice = {};
};

/// A line of a panel: a label, its value and, in the right half, a second value; without a label the value
/// has the whole line. A check box carries its caption.
struct PrintedLine {
  const char* label;
  PrintedValue value;
  PrintedValue second = {};
};
inline constexpr const char* kNoLabel = nullptr;

/// A panel with its lines, and the panels in it. Lines whose choice the unit does not have are left out, and
/// a panel without a line.
struct PrintedPanel {
  const char* title;
  std::span<const PrintedLine> lines;
  std::span<const PrintedPanel> inner = {};
  int vitcLine = 1;  ///< of one that belongs to a VITC line: which, so that lines not in use are left out
};

/// The head of the panels' page: label and value side by side.
struct PrintedField {
  const char* label;
  std::string (*value)(const PrintSource& source);
  double x;
  double labelWidth;
  double valueWidth;
};

/// What a cell of a table shows: a text, or a tick. A record without its row of controls has blank cells.
using PrintedCell = std::variant<std::string, bool>;

struct PrintedColumn {
  const char* head;  ///< none: the caption of bValue, which tells the radix
  PrintedCell (*cell)(const PrintSource& source, int row);
  double x;
  double width;
  PrintAlign align = PrintAlign::kLeft;
};

/// A table in a panel of its own, as wide as the sheet.
struct PrintedTable {
  const char* title;
  std::span<const PrintedColumn> columns;
  std::vector<int> (*rows)(const PrintSource& source);
};

/// The panels' page: the fields of its head, the panels of its two columns, and the table below them.
std::span<const PrintedField> PrintedHead();
std::span<const PrintedPanel> LeftPanels();
std::span<const PrintedPanel> RightPanels();
const PrintedTable& PrintedWindows();
/// The parameters' page.
const PrintedTable& PrintedParameters();

}  // namespace marlinset
