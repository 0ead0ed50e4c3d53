// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/print_layout.h"

#include <algorithm>
#include <utility>

#include "core/frm_start.h"
#include "report/print_page.h"

namespace marlinset {
namespace {

// All measures in millimetres.
constexpr double kRowHeight = 4.7;
constexpr double kTableRowHeight = 4.6;
constexpr double kGap = 2.5;
constexpr double kPad = 1.5;
constexpr double kColumnGap = 4;
constexpr double kColumnWidth = (kSheetWidth - kColumnGap) / 2;
constexpr double kLabelWidth = 32;
constexpr double kCheckWidth = 6;
constexpr double kTitleHeight = 7;
/// Below this line, a sheet shows its number if there are several.
constexpr double kBottom = kSheetHeight - kRowHeight;
constexpr double kPageWidth = 26;
constexpr double kDateWidth = 44;

const std::string& TextOf(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::kComboBox:
      return static_cast<const ComboBox&>(control).Text();
    case ControlKind::kTextBox:
      return static_cast<const TextBox&>(control).Text();
    default:
      return control.Caption();
  }
}

class Layout {
 public:
  Layout(const PrintSource& source, const char* page) : source_(source), page_(page) { StartSheet(); }

  void AddPanels() {
    HeadFields();
    const double top = y_;
    const double left = Column(0, top, LeftPanels());
    const double right = Column(kColumnWidth + kColumnGap, top, RightPanels());
    y_ = std::max(left, right);
  }

  void AddTable(const PrintedTable& table) {
    // Headings without a row below them say nothing.
    if (y_ + 2 * kRowHeight + kTableRowHeight + kPad > kBottom) StartSheet();
    repeating_ = false;
    double top = BeginTable(table);
    for (const int row : table.rows(source_)) {
      if (y_ + kTableRowHeight + kPad > kBottom) {
        Outline(0, top, kSheetWidth, y_ + kPad);
        StartSheet();
        top = BeginTable(table);
        repeating_ = false;
      }
      AddRow(table, row);
    }
    Outline(0, top, kSheetWidth, y_ + kPad);
    y_ += kPad + kGap;
  }

  PrintedForm Take() {
    NumberSheets();
    return std::move(printed_);
  }

 private:
  PrintSheet& Sheet() { return printed_.sheets.back(); }

  void Text(const std::string& text, PrintItem place) {
    place.text = text;
    place.repeated = repeating_;
    Sheet().push_back(std::move(place));
  }
  void AddCheck(bool on, PrintItem place) {
    place.kind = PrintKind::kCheck;
    place.on = on;
    Sheet().push_back(std::move(place));
  }
  void AddText(const std::string& text, double x, double y, double width, PrintLook look) {
    Text(text, {.x = x, .y = y, .width = width, .height = kRowHeight, .look = look});
  }

  /// A value, or a check box followed by its caption.
  void AddPart(const PrintedValue& part, double x, double y, double width) {
    const Control* control = source_.form.Find(part.control, part.index);
    if (!control) throw NoSuchElement(part.index);
    double from = 0;
    if (control->Kind() == ControlKind::kCheckBox) {
      from = kCheckWidth;
      AddCheck(static_cast<const CheckBox*>(control)->On(),
               {.x = x, .y = y, .width = kCheckWidth, .height = kRowHeight});
    }
    AddText(TextOf(*control), x + from, y, width - from, PrintLook::kPlain);
  }

  void StartSheet() {
    repeating_ = !printed_.sheets.empty();
    printed_.sheets.emplace_back();
    Text(source_.form.Caption(),
         {.width = kSheetWidth - kDateWidth - kPageWidth, .height = kTitleHeight, .look = PrintLook::kTitle});
    Text(source_.dateAndTime, {.x = kSheetWidth - kDateWidth - kPageWidth,
                               .width = kDateWidth,
                               .height = kTitleHeight,
                               .align = PrintAlign::kRight});
    Text(page_, {.x = kSheetWidth - kPageWidth,
                 .width = kPageWidth,
                 .height = kTitleHeight,
                 .align = PrintAlign::kRight});
    Sheet().push_back({.kind = PrintKind::kRule, .y = kTitleHeight + 1, .width = kSheetWidth});
    y_ = kTitleHeight + kGap;
  }

  void HeadFields() {
    for (const PrintedField& field : PrintedHead()) {
      AddText(field.label, field.x, y_, field.labelWidth, PrintLook::kFaint);
      AddText(field.value(source_), field.x + field.labelWidth, y_, field.valueWidth, PrintLook::kBold);
    }
    y_ += kRowHeight + kGap;
  }

  bool IsShown(const PrintedLine& line) const {
    return !line.value.choice || UnitHas(ChoiceOf(*line.value.choice), source_.form.ModelIsQ());
  }
  bool IsShown(const PrintedPanel& panel) const {
    const int option = source_.form.vitcModes.Selected();
    const bool inUse = option == kNoIndex || panel.vitcLine <= option + 1;
    return inUse &&
           std::ranges::any_of(panel.lines, [this](const PrintedLine& line) { return IsShown(line); });
  }

  /// Stacks panels from `y` downwards; returns where the next item may begin.
  double Column(double x, double y, std::span<const PrintedPanel> panels) {
    for (const PrintedPanel& panel : panels) y = AddPanel(panel, x, y, kColumnWidth, kGap);
    return y;
  }

  double AddPanel(const PrintedPanel& panel, double x, double y, double width, double gap) {
    if (!IsShown(panel)) return y;
    const double top = y;
    y = Title(panel.title, x, y + kPad / 2, width);
    for (const PrintedLine& line : panel.lines) y = AddLine(line, x + kPad, y, width - 2 * kPad);
    y += kPad / 2;
    for (const PrintedPanel& inner : panel.inner) y = AddPanel(inner, x + kPad, y, width - 2 * kPad, kPad);
    Outline(x, top, width, y);
    return y + gap;
  }

  double Title(const char* title, double x, double y, double width) {
    AddText(title, x + kPad, y, width - 2 * kPad, PrintLook::kBold);
    return y + kRowHeight;
  }

  void Outline(double x, double top, double width, double bottom) {
    Sheet().push_back({.kind = PrintKind::kFrame, .x = x, .y = top, .width = width, .height = bottom - top});
  }

  double AddLine(const PrintedLine& line, double x, double y, double width) {
    if (!IsShown(line)) return y;
    if (line.label) {
      AddText(line.label, x, y, kLabelWidth, PrintLook::kFaint);
      x += kLabelWidth;
      width -= kLabelWidth;
    }
    const bool two = !line.second.control.empty();
    const double valueWidth = two ? width / 2 : width;
    AddPart(line.value, x, y, valueWidth);
    if (two) AddPart(line.second, x + valueWidth, y, valueWidth);
    return y + kRowHeight;
  }

  double BeginTable(const PrintedTable& table) {
    const double top = y_;
    y_ = Title(table.title, 0, y_ + kPad / 2, kSheetWidth);
    for (const PrintedColumn& column : table.columns) {
      Text(column.head ? column.head : source_.form.bValue.Caption(), {.x = column.x,
                                                                       .y = y_,
                                                                       .width = column.width,
                                                                       .height = kRowHeight,
                                                                       .look = PrintLook::kFaint,
                                                                       .align = column.align});
    }
    y_ += kRowHeight;
    return top;
  }

  void AddRow(const PrintedTable& table, int row) {
    Sheet().push_back({.kind = PrintKind::kRule, .x = kPad, .y = y_, .width = kSheetWidth - 2 * kPad});
    for (const PrintedColumn& column : table.columns) {
      PrintItem place{
          .x = column.x, .y = y_, .width = column.width, .height = kTableRowHeight, .align = column.align};
      const PrintedCell cell = column.cell(source_, row);
      if (const bool* on = std::get_if<bool>(&cell)) {
        AddCheck(*on, std::move(place));
      } else {
        Text(std::get<std::string>(cell), std::move(place));
      }
    }
    y_ += kTableRowHeight;
  }

  /// Numbers the sheets of a page that needs several.
  void NumberSheets() {
    const std::size_t count = printed_.sheets.size();
    for (std::size_t i = 0; count > 1 && i < count; ++i) {
      printed_.sheets[i].push_back({.y = kBottom,
                                    .width = kSheetWidth,
                                    .height = kRowHeight,
                                    .text = "Sheet " + std::to_string(i + 1) + " of " + std::to_string(count),
                                    .look = PrintLook::kFaint,
                                    .align = PrintAlign::kRight,
                                    .repeated = true});
    }
  }

  const PrintSource& source_;
  const char* page_;
  PrintedForm printed_;
  double y_ = 0;
  bool repeating_ = false;
};

}  // namespace

PrintedForm LayOutPanels(const PrintSource& source) {
  Layout layout(source, "Page 1 of 2");
  layout.AddPanels();
  layout.AddTable(PrintedWindows());
  return layout.Take();
}

PrintedForm LayOutParameters(const PrintSource& source) {
  Layout layout(source, "Page 2 of 2");
  layout.AddTable(PrintedParameters());
  return layout.Take();
}

}  // namespace marlinset
