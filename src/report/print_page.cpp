// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/print_page.h"

#include "core/frm_start.h"
#include "core/variables.h"
#include "core/window_ticks.h"

namespace marlinset {
namespace {

using enum ChoiceId;

constexpr PrintedLine kCodes[] = {{"Time Bits:", kInputTimeBits}, {"User Bits:", kInputUserBits}};
constexpr PrintedLine kChecks[] = {{kNoLabel, {"chVITC"}}, {kNoLabel, {"chDups"}}, {kNoLabel, {"chSync"}}};
constexpr PrintedLine kLtc[] = {{"Time Bits:", kLtcTimeBits}, {"User Bits:", kLtcUserBits}};
constexpr PrintedLine kVitc1[] = {{"Time Bits:", kVitc1TimeBits},
                                  {"User Bits:", kVitc1UserBits},
                                  {"Line Numbers", {"tLineNumber", 1}, {"tLineNumber", 5}}};
constexpr PrintedLine kVitc2[] = {{"Time Bits:", kVitc2TimeBits},
                                  {"User Bits:", {"ComUB", 3}},
                                  {"Line Numbers", {"tLineNumber", 2}, {"tLineNumber", 6}}};
constexpr PrintedLine kVitc3[] = {{"Time Bits:", kVitc3TimeBits},
                                  {"User Bits:", kVitc3UserBits},
                                  {"Line Numbers", {"tLineNumber", 3}, {"tLineNumber", 7}}};
constexpr PrintedLine kWhite[] = {{"Line Number", {"tLineNumber", FrmStart::kWhiteFlagEcho}, {"chEnable"}}};
constexpr PrintedPanel kOutputs[] = {{"LTC", kLtc},
                                     {"VITC 1st Line", kVitc1},
                                     {"VITC 2nd Line", kVitc2, {}, 2},
                                     {"VITC 3rd Line", kVitc3, {}, 3},
                                     {"White Flag", kWhite}};
constexpr PrintedLine kAttribs[] = {{"Style:", kCharStyle}, {"Font Size:", kFontSize}};
constexpr PrintedLine kVirtual[] = {
    {"Mode:", kSlateMode}, {"Duration (frs):", {"tLineNumber", FrmStart::kSlateDurationEcho}, {"chPrev"}}};
constexpr PrintedLine kWinMess[] = {{kNoLabel, {"tWinMess"}}};
constexpr PrintedLine kDownConv[] = {{"Aspect Ratio:", kAspectRatio},
                                     {"Processing Mode:", kProcessingMode},
                                     {"V. Filter:", kVerticalFilter},
                                     {"H. Filter:", kHorizontalFilter}};
constexpr PrintedLine kSdi[] = {{kNoLabel, kSdiProgramOut}};

constexpr PrintedPanel kLeftColumn[] = {{"Inputs", kCodes}, {"Active Outputs", kChecks, kOutputs}};
constexpr PrintedPanel kRightColumn[] = {{"Attributes", kAttribs},
                                         {"Virtual Slate", kVirtual},
                                         {"Text Window Message", kWinMess},
                                         {"Down Converter", kDownConv},
                                         {"SDI Program Out", kSdi}};

std::string StandardOf(const PrintSource& source) {
  return source.form.comVS.Text();
}
std::string VitcModeOf(const PrintSource& source) {
  const int option = source.form.vitcModes.Selected();
  return option == kNoIndex ? "" : std::to_string(option + 1) + " Line";
}
std::string PortOf(const PrintSource& source) {
  return source.port;
}

constexpr PrintedField kHeadFields[] = {{"Video Standard:", StandardOf, 0, 30, 40},
                                        {"VITC Mode:", VitcModeOf, 70, 20, 30},
                                        {"Com Port:", PortOf, 130, 18, 20}};

template <auto kLabels>
PrintedCell CaptionCell(const PrintSource& source, int row) {
  const auto& labels = source.form.*kLabels;
  return labels.Has(row) ? labels(row).Caption() : "";
}
template <auto kTexts>
PrintedCell TextCell(const PrintSource& source, int row) {
  const auto& texts = source.form.*kTexts;
  return texts.Has(row) ? texts(row).Text() : "";
}
template <TickId kTick>
PrintedCell TickCell(const PrintSource& source, int row) {
  const auto& boxes = source.form.*TickOf(kTick).boxes;
  return boxes.Has(row) && boxes(row).On();
}
PrintedCell ClassCell(const PrintSource& source, int row) {
  return std::to_string(At(source.vars.SystemParameters, row).Class);
}
PrintedCell NumberCell(const PrintSource& source, int row) {
  return std::to_string(At(source.vars.SystemParameters, row).Parameter);
}
PrintedCell DescriptionCell(const PrintSource& source, int row) {
  return At(source.vars.SystemParameters, row).Description;
}

constexpr PrintedColumn kWindowColumns[] = {
    {"Name", CaptionCell<&FrmStart::lName>, 2, 46},
    {"Slate", TickCell<TickId::kSlate>, 49, 14, PrintAlign::kCentre},
    {"On/Off", TickCell<TickId::kOn>, 63, 15, PrintAlign::kCentre},
    {"Field", TickCell<TickId::kField>, 78, 13, PrintAlign::kCentre},
    {"Symbol", TickCell<TickId::kSymbol>, 91, 16, PrintAlign::kCentre},
    {"Dbl Height", TickCell<TickId::kDoubleHeight>, 107, 19, PrintAlign::kCentre},
    {"Vertical Filter", TextCell<&FrmStart::tVert>, 127, 24, PrintAlign::kRight},
    {"Horizontal Filter", TextCell<&FrmStart::tHor>, 155, 27, PrintAlign::kRight},
};
constexpr PrintedColumn kParameterColumns[] = {
    {"Class", ClassCell, 2, 14, PrintAlign::kRight},
    {"Parameter", NumberCell, 18, 20, PrintAlign::kRight},
    {"Description", DescriptionCell, 44, 108},
    {nullptr, TextCell<&FrmStart::tVal>, 154, 28, PrintAlign::kRight},
};

/// All windows except those that the operating mode hides.
std::vector<int> WindowRows(const PrintSource& source) {
  const ControlArray<Label>& names = source.form.lName;
  std::vector<int> rows;
  for (int row = 0; row <= UBound(source.vars.CharWindows); ++row) {
    if (!names.Has(row) || names(row).Visible()) rows.push_back(row);
  }
  return rows;
}

/// All parameters, including those of internal classes.
std::vector<int> ParameterRows(const PrintSource& source) {
  std::vector<int> rows;
  for (int row = 0; row <= UBound(source.vars.SystemParameters); ++row) rows.push_back(row);
  return rows;
}

constexpr PrintedTable kWindowTable{"Active Window Position", kWindowColumns, WindowRows};
constexpr PrintedTable kParameterTable{"Parameters", kParameterColumns, ParameterRows};

}  // namespace

std::span<const PrintedField> PrintedHead() {
  return kHeadFields;
}
std::span<const PrintedPanel> LeftPanels() {
  return kLeftColumn;
}
std::span<const PrintedPanel> RightPanels() {
  return kRightColumn;
}
const PrintedTable& PrintedWindows() {
  return kWindowTable;
}
const PrintedTable& PrintedParameters() {
  return kParameterTable;
}

}  // namespace marlinset
