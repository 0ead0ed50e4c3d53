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

// The content of the two pages, in tables: which controls of the main form, with which texts, in what order.
// Measures are in millimetres.

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
/// takes the full line. A check box includes its caption.
struct PrintedLine {
  const char* label;
  PrintedValue value;
  PrintedValue second = {};
};
inline constexpr const char* kNoLabel = nullptr;

/// A panel with its lines and inner panels. Omits lines whose choice the unit does not have, and a panel
/// without lines.
struct PrintedPanel {
  const char* title;
  std::span<const PrintedLine> lines;
  std::span<const PrintedPanel> inner = {};
  int vitcLine = 1;  ///< the VITC line that the panel belongs to; omitted if that line is not in use
};

/// A field at the head of the panels' page: label and value side by side.
struct PrintedField {
  const char* label;
  std::string (*value)(const PrintSource& source);
  double x;
  double labelWidth;
  double valueWidth;
};

/// What a cell of a table shows: a text, or a tick. A record without a row of controls has blank cells.
using PrintedCell = std::variant<std::string, bool>;

struct PrintedColumn {
  const char* head;  ///< null: the caption of bValue, which names the radix
  PrintedCell (*cell)(const PrintSource& source, int row);
  double x;
  double width;
  PrintAlign align = PrintAlign::kLeft;
};

/// A table in its own panel, as wide as the sheet.
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
