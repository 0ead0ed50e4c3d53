// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/print_layout.h"

#include <algorithm>
#include <span>

#include "report/frm_print.h"

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
/// Below stands which of several sheets this is.
constexpr double kBottom = kSheetHeight - kRowHeight;
constexpr double kPageWidth = 26;
constexpr double kDateWidth = 44;

/// A control of the form by name and index; no name: none.
struct Part {
  const char* name = nullptr;
  int index = kNoIndex;
};

/// A line of a panel: a label, its value and, in the right half, a second value. A check box takes the place
/// of a label or of a value and carries its caption.
struct Line {
  Part label;
  Part value = {};
  Part second = {};
};

/// A panel with its lines, and the panels in it.
struct Panel {
  const char* frame;
  std::span<const Line> lines;
  std::span<const Panel> inner = {};
};

constexpr Line kCodes[] = {{{"ltimeBits", 0}, {"tOutbox", 0}}, {{"lUserBits", 0}, {"tOutbox", 1}}};
constexpr Line kChecks[] = {{{"chVITC"}}, {{"chDups"}}, {{"chSync"}}};
constexpr Line kLtc[] = {{{"ltimeBits", 1}, {"tOutbox", 2}}, {{"lUserBits", 1}, {"tOutbox", 3}}};
constexpr Line kVitc1[] = {{{"ltimeBits", 2}, {"tOutbox", 4}},
                           {{"lUserBits", 2}, {"tOutbox", 5}},
                           {{"lMisc", 1}, {"tOutbox", 11}, {"tOutbox", 12}}};
constexpr Line kVitc2[] = {{{"ltimeBits", 3}, {"tOutbox", 6}},
                           {{"lUserBits", 3}, {"tOutbox", 7}},
                           {{"lMisc", 2}, {"tOutbox", 13}, {"tOutbox", 14}}};
constexpr Line kVitc3[] = {{{"ltimeBits", 4}, {"tOutbox", 8}},
                           {{"lUserBits", 4}, {"tOutbox", 9}},
                           {{"lMisc", 3}, {"tOutbox", 15}, {"tOutbox", 16}}};
constexpr Line kWhite[] = {{{"lMisc", 0}, {"tOutbox", 10}, {"chEnable"}}};
constexpr Panel kOutputs[] = {
    {"fLTCOut", kLtc}, {"fVITC1", kVitc1}, {"fVITC2", kVitc2}, {"fVITC3", kVitc3}, {"fWhite", kWhite}};
constexpr Line kAttribs[] = {{{"lMisc", 4}, {"tOutbox", FrmPrint::kStyle}},
                             {{"lMisc", 5}, {"tOutbox", FrmPrint::kFontSize}}};
constexpr Line kVirtual[] = {{{"lMisc", 6}, {"tOutbox", FrmPrint::kSlateMode}},
                             {{"lMisc", 7}, {"tLineNumber", 4}, {"chPrev"}}};
constexpr Line kWinMess[] = {{{"tWinMess"}}};
constexpr Line kDownConv[] = {{{"lMisc", 8}, {"tOutbox", FrmPrint::kAspectRatio}},
                              {{"lMisc", FrmPrint::kModelLabels[0]}, {"TxtNew", 0}},
                              {{"lMisc", FrmPrint::kModelLabels[1]}, {"TxtNew", 1}},
                              {{"lMisc", FrmPrint::kModelLabels[2]}, {"TxtNew", 2}}};
constexpr Line kSdi[] = {{{"TxtSDI"}}};

constexpr Panel kLeftColumn[] = {{"fCodes", kCodes}, {"fOutputs", kChecks, kOutputs}};
constexpr Panel kRightColumn[] = {{"fAttribs", kAttribs},
                                  {"fVirtual", kVirtual},
                                  {"fWinMess", kWinMess},
                                  {"fDownConv", kDownConv},
                                  {"fSDIProgramOut", kSdi}};

/// The head of page 1: label and value side by side.
struct HeadField {
  Part label;
  Part value;
  double x;
  double labelWidth;
  double valueWidth;
};
constexpr HeadField kHeadFields[] = {
    {{"lUserBits", FrmPrint::kStandardLabel}, {"tOutbox", FrmPrint::kStandard}, 0, 30, 40},
    {{"lUserBits", FrmPrint::kVitcCountLabel}, {"tOutbox", FrmPrint::kVitcCount}, 70, 20, 30},
    {{"lUserBits", FrmPrint::kPortLabel}, {"tOutbox", FrmPrint::kPort}, 130, 18, 20}};

struct TableColumn {
  Part head;
  const char* cells;
  double x;
  double width;
  PrintAlign align = PrintAlign::kLeft;
};
constexpr TableColumn kWindowColumns[] = {
    {{"lHead", 0}, "lName", 2, 46},
    {{"lHead", 1}, "chSlate", 49, 14, PrintAlign::kCentre},
    {{"lHead", 2}, "chOnOff", 63, 15, PrintAlign::kCentre},
    {{"lHead", 3}, "chField", 78, 13, PrintAlign::kCentre},
    {{"lHead", 4}, "chSym", 91, 16, PrintAlign::kCentre},
    {{"lHead", 5}, "chDblSize", 107, 19, PrintAlign::kCentre},
    {{"lHead", 6}, "tVert", 127, 24, PrintAlign::kRight},
    {{"lHead", 7}, "tHor", 155, 27, PrintAlign::kRight},
};
constexpr TableColumn kParameterColumns[] = {
    {{"bClass"}, "lClass", 2, 14, PrintAlign::kRight},
    {{"bParam"}, "lParam", 18, 20, PrintAlign::kRight},
    {{"bDesc"}, "lDesc", 44, 108},
    {{"bValue"}, "tVal", 154, 28, PrintAlign::kRight},
};

/// A table in a panel of its own, as wide as the sheet.
struct Table {
  const char* frame;
  std::span<const TableColumn> columns;
};
constexpr Table kTables[] = {{"fPosition", kWindowColumns}, {"fParameters", kParameterColumns}};

const std::string& TextOf(const Control& control) {
  return control.Kind() == ControlKind::kTextBox ? static_cast<const TextBox&>(control).Text()
                                                 : control.Caption();
}

class Layout {
 public:
  explicit Layout(const FrmPrint& form) : form_(form) {}

  PrintedForm Run() {
    StartSheet();
    HeadFields();
    const double top = y_;
    const double left = Column(0, top, kLeftColumn);
    const double right = Column(kColumnWidth + kColumnGap, top, kRightColumn);
    y_ = std::max(left, right);
    for (const Table& table : kTables) AddTable(table);
    NumberSheets();
    return std::move(printed_);
  }

 private:
  /// The control when it is shown.
  const Control* Shown(Part part) const {
    const Control* control = part.name ? form_.Find(part.name, part.index) : nullptr;
    return control && control->Visible() ? control : nullptr;
  }
  PrintSheet& Sheet() { return printed_.sheets.back(); }

  void Text(const Control* control, PrintItem place) {
    if (!control) return;
    place.text = TextOf(*control);
    place.repeated = repeating_;
    Sheet().push_back(std::move(place));
  }

  /// A value, a label, or a check box with its caption behind it.
  void AddPart(const Control* control, double x, double y, double width, PrintLook look) {
    if (!control) return;
    const bool check = control->Kind() == ControlKind::kCheckBox;
    if (check) AddCheck(*control, {.x = x, .y = y, .width = kCheckWidth, .height = kRowHeight});
    const double from = check ? kCheckWidth : 0;
    Text(control, {.x = x + from,
                   .y = y,
                   .width = width - from,
                   .height = kRowHeight,
                   .look = check ? PrintLook::kPlain : look});
  }
  void AddCheck(const Control& control, PrintItem place) {
    place.kind = PrintKind::kCheck;
    place.on = static_cast<const CheckBox&>(control).On();
    Sheet().push_back(std::move(place));
  }

  void StartSheet() {
    repeating_ = !printed_.sheets.empty();
    printed_.sheets.emplace_back();
    Text(Shown({"tOutbox", FrmPrint::kName}),
         {.width = kSheetWidth - kDateWidth - kPageWidth, .height = kTitleHeight, .look = PrintLook::kTitle});
    Text(Shown({"tOutbox", FrmPrint::kDateAndTime}), {.x = kSheetWidth - kDateWidth - kPageWidth,
                                                      .width = kDateWidth,
                                                      .height = kTitleHeight,
                                                      .align = PrintAlign::kRight});
    Text(Shown({"lPage"}), {.x = kSheetWidth - kPageWidth,
                            .width = kPageWidth,
                            .height = kTitleHeight,
                            .align = PrintAlign::kRight});
    Sheet().push_back({.kind = PrintKind::kRule, .y = kTitleHeight + 1, .width = kSheetWidth});
    y_ = kTitleHeight + kGap;
  }

  void HeadFields() {
    bool any = false;
    for (const HeadField& field : kHeadFields) {
      AddPart(Shown(field.label), field.x, y_, field.labelWidth, PrintLook::kFaint);
      AddPart(Shown(field.value), field.x + field.labelWidth, y_, field.valueWidth, PrintLook::kBold);
      any = any || Shown(field.value);
    }
    if (any) y_ += kRowHeight + kGap;
  }

  /// Stacks panels from `y` on; returns where the next thing below may begin.
  double Column(double x, double y, std::span<const Panel> panels) {
    for (const Panel& panel : panels) y = AddPanel(panel, x, y, kColumnWidth, kGap);
    return y;
  }

  double AddPanel(const Panel& panel, double x, double y, double width, double gap) {
    const Control* frame = Shown({panel.frame});
    if (!frame) return y;
    const double top = y;
    y = Caption(*frame, x, y + kPad / 2, width);
    for (const Line& line : panel.lines) y = AddLine(line, x + kPad, y, width - 2 * kPad);
    y += kPad / 2;
    for (const Panel& inner : panel.inner) y = AddPanel(inner, x + kPad, y, width - 2 * kPad, kPad);
    Outline(x, top, width, y);
    return y + gap;
  }

  double Caption(const Control& frame, double x, double y, double width) {
    Text(&frame,
         {.x = x + kPad, .y = y, .width = width - 2 * kPad, .height = kRowHeight, .look = PrintLook::kBold});
    return y + kRowHeight;
  }

  void Outline(double x, double top, double width, double bottom) {
    Sheet().push_back({.kind = PrintKind::kFrame, .x = x, .y = top, .width = width, .height = bottom - top});
  }

  double AddLine(const Line& line, double x, double y, double width) {
    const Control* label = Shown(line.label);
    const Control* value = Shown(line.value);
    const Control* second = Shown(line.second);
    if (!label && !value && !second) return y;
    const double valueWidth = second ? (width - kLabelWidth) / 2 : width - kLabelWidth;
    AddPart(label, x, y, line.value.name ? kLabelWidth : width,
            line.value.name ? PrintLook::kFaint : PrintLook::kPlain);
    AddPart(value, x + kLabelWidth, y, valueWidth, PrintLook::kPlain);
    AddPart(second, x + kLabelWidth + valueWidth, y, valueWidth, PrintLook::kPlain);
    return y + kRowHeight;
  }

  // Tables.

  void AddTable(const Table& table) {
    const Control* frame = Shown({table.frame});
    if (!frame) return;
    // A head without a row below it says nothing.
    if (y_ + 2 * kRowHeight + kTableRowHeight + kPad > kBottom) StartSheet();
    repeating_ = false;
    double top = BeginTable(table, *frame);
    for (const int row : RowsOf(table)) {
      if (y_ + kTableRowHeight + kPad > kBottom) {
        Outline(0, top, kSheetWidth, y_ + kPad);
        StartSheet();
        top = BeginTable(table, *frame);
        repeating_ = false;
      }
      AddRow(table, row);
    }
    Outline(0, top, kSheetWidth, y_ + kPad);
    y_ += kPad + kGap;
  }

  std::vector<int> RowsOf(const Table& table) const {
    std::vector<int> rows;
    for (int row = 0; const Control* first = form_.Find(table.columns.front().cells, row); ++row) {
      if (first->Visible()) rows.push_back(row);
    }
    return rows;
  }

  double BeginTable(const Table& table, const Control& frame) {
    const double top = y_;
    y_ = Caption(frame, 0, y_ + kPad / 2, kSheetWidth);
    for (const TableColumn& column : table.columns) {
      Text(Shown(column.head), {.x = column.x,
                                .y = y_,
                                .width = column.width,
                                .height = kRowHeight,
                                .look = PrintLook::kFaint,
                                .align = column.align});
    }
    y_ += kRowHeight;
    return top;
  }

  void AddRow(const Table& table, int row) {
    Sheet().push_back({.kind = PrintKind::kRule, .x = kPad, .y = y_, .width = kSheetWidth - 2 * kPad});
    for (const TableColumn& column : table.columns) {
      const Control* cell = Shown({column.cells, row});
      if (!cell) continue;
      PrintItem place{
          .x = column.x, .y = y_, .width = column.width, .height = kTableRowHeight, .align = column.align};
      if (cell->Kind() == ControlKind::kCheckBox) {
        AddCheck(*cell, std::move(place));
      } else {
        Text(cell, std::move(place));
      }
    }
    y_ += kTableRowHeight;
  }

  /// A page that needs several sheets says which of them each one is.
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

  const FrmPrint& form_;
  PrintedForm printed_;
  double y_ = 0;
  bool repeating_ = false;
};

}  // namespace

PrintedForm LayOut(const FrmPrint& form) {
  return Layout(form).Run();
}

}  // namespace marlinset
