// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of character windows and of parameters: building, defaults, arranging.
#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "core/frm_start.h"
#include "core/panel_setup.h"
#include "core/variables.h"
#include "core/window_ticks.h"

namespace marlinset {
namespace {

/// Rows that fit into the visible part of the tables.
constexpr int kRowsInView = 16;

/// The windows that units show in mode "HD Video Downconvert".
constexpr std::array<std::string_view, 7> kDownconvertWindows = {
    "Video Timecode", "Video User Bits", "Text", "PullDown", "Debug", "Debug2", "Debug3"};

/// `value` if it is at most `max`; otherwise 0 for a negative value, and `max` for any other.
int WithinMax(int value, int max) {
  if (value <= max) return value;
  return value < 0 ? 0 : max;
}

void FitScrollBar(ScrollBar& bar, PictureBox& sheet, int rows) {
  const int hiddenRows = std::max(0, rows - kRowsInView);
  bar.SetMax(hiddenRows * FrmStart::kRowHeight);
  bar.SetVisible(hiddenRows > 0);
  bar.SetValue(std::min(bar.Value(), bar.Max()));
  sheet.SetTop(FrmStart::kRowHeight - bar.Value());
}

}  // namespace

void PanelSetup::BuildWindowRows() {
  for (int row = 0; row <= UBound(vars_.CharWindows); ++row) {
    if (row > 0) form_.ForWindowRow([row](auto& array) { array.Load(row); });
    form_.lName(row).SetCaption(At(vars_.CharWindows, row).Name);
    TickDefaults(row);
    form_.udVer(row).SetValue(At(vars_.CharWindows, row).DefaultVertPosn);
    form_.udHor(row).SetValue(At(vars_.CharWindows, row).DefaultHorPosn);
    echoes_.ShowWindowRow(row);
  }
}

void PanelSetup::TickDefaults(int row) {
  const CharWindowRec window = At(vars_.CharWindows, row);  // a copy: a Click may replace the records
  SetWindowTicks(form_, row, window);
}

void PanelSetup::SetPositionLimits(int row) {
  const CharMaxPosRec& limits = At(vars_.CharMaxPositions, vars_.CurCharMaxRow);
  form_.udVer(row).SetProvisional(false);
  form_.udHor(row).SetProvisional(false);
  form_.udVer(row).SetMin(limits.MaxVertPosn);
  form_.udVer(row).SetMax(limits.MinVertPosn);
  form_.udHor(row).SetMin(limits.MinHorPosn);
  form_.udHor(row).SetMax(limits.MaxHorPosn - At(vars_.CharWindows, row).Length);
}

void PanelSetup::SettlePositionLimits() {
  FindCharMaxRow();
  const CharMaxPosRec& limits = At(vars_.CharMaxPositions, vars_.CurCharMaxRow);
  const auto settle = [](SpinControl& spin, int min, int max) {
    if (!spin.Provisional()) return;
    spin.SetProvisional(false);
    spin.SetLimitsAround(min, max);
  };
  for (int row = 0; row <= UBound(vars_.CharWindows); ++row) {
    if (!form_.HasWindowRow(row)) continue;
    const int width = TickedLength(form_, row, At(vars_.CharWindows, row));
    settle(form_.udVer(row), limits.MaxVertPosn, limits.MinVertPosn);
    settle(form_.udHor(row), limits.MinHorPosn, limits.MaxHorPosn - width);
  }
}

void PanelSetup::DefaultWindow(int row) {
  const CharMaxPosRec& limits = At(vars_.CharMaxPositions, vars_.CurCharMaxRow);
  form_.lName(row).SetCaption(At(vars_.CharWindows, row).Name);
  SetPositionLimits(row);
  TickDefaults(row);
  // Starts again from the full width: a tick that has just changed has already lowered the limit, and must
  // not count twice.
  form_.udHor(row).SetMax(limits.MaxHorPosn - At(vars_.CharWindows, row).Length);
  LimitForField(row);
  const CharWindowRec window = At(vars_.CharWindows, row);
  form_.udVer(row).SetValue(WithinMax(window.DefaultVertPosn, form_.udVer(row).Max()));
  // The text window is as wide as its message, so its base width does not count.
  if (row == FrmStart::kTextWindowRow) form_.udHor(row).SetMax(limits.MaxHorPosn);
  form_.udHor(row).SetValue(WithinMax(window.DefaultHorPosn, form_.udHor(row).Max()));
}

/// Leaves room for field digit and symbol if the window has them, ticked or not; disables the boxes of those
/// that it lacks.
void PanelSetup::LimitForField(int row) {
  const CharWindowRec window = At(vars_.CharWindows, row);
  const auto apply = [&](CheckBox& box, int length) {
    box.SetEnabled(length != 0);
    if (length != 0) form_.udHor(row).SetMax(form_.udHor(row).Max() - length);
  };
  apply(form_.chField(row), window.FieldLength);
  apply(form_.chSym(row), window.SymbolLength);
}

bool PanelSetup::WindowIsShown(int row) const {
  if (vars_.OperatingMode != kDefaultOperatingMode) return true;
  const std::string& name = form_.lName(row).Caption();
  return std::find(kDownconvertWindows.begin(), kDownconvertWindows.end(), name) != kDownconvertWindows.end();
}

void PanelSetup::ShowWindow(int row, bool shown) {
  if (!shown) {
    form_.chOnOff(row).SetValue(0);
    form_.chSlate(row).SetValue(0);
  }
  form_.tVert(row).SetEnabled(shown);
  form_.tHor(row).SetEnabled(shown);
  form_.ForWindowRow([&](auto& array) { array(row).SetVisible(shown); });
}

void PanelSetup::ArrangeWindowRows() {
  int shownRows = 0;
  for (int row = 0; row <= UBound(vars_.CharWindows); ++row) {
    const bool shown = WindowIsShown(row);
    ShowWindow(row, shown);
    if (shown) ++shownRows;
  }
  FitScrollBar(form_.VScroll1, form_.pWinIn, shownRows);
  FitParameterSheet();
}

void PanelSetup::FitParameterSheet() {
  const auto shownParameters =
      std::count_if(vars_.SystemParameters.begin(), vars_.SystemParameters.end(),
                    [](const SystemParameterRec& parameter) { return !IsInternalClass(parameter.Class); });
  FitScrollBar(form_.VScroll2, form_.pParIn, static_cast<int>(shownParameters));
}

void PanelSetup::BuildParameterRows() {
  for (int row = 0; row <= UBound(vars_.SystemParameters); ++row) {
    LoadParameterRow(row);
    FillParameterRow(row);
  }
}

void PanelSetup::LoadParameterRow(int row) {
  if (form_.lClass.Has(row)) return;
  form_.ForParameterRow([row](auto& column) { column.Load(row); });
}

void PanelSetup::FillParameterRow(int row) {
  const SystemParameterRec parameter = At(vars_.SystemParameters, row);
  const bool shown = !IsInternalClass(parameter.Class);
  form_.lClass(row).SetCaption(std::to_string(parameter.Class));
  form_.lParam(row).SetCaption(shown ? std::to_string(parameter.Parameter) : "");
  form_.lDesc(row).SetCaption(shown ? parameter.Description : "");
  echoes_.ShowParameterRow(row);
  ShowParameterRow(row, shown);
  if (!shown) return;
  form_.udVal(row).SetMin(std::numeric_limits<int>::min());
  form_.udVal(row).SetMax(std::numeric_limits<int>::max());
  form_.udVal(row).SetValue(parameter.Value);  // last: in interactive mode this sends the value to the unit
}

void PanelSetup::ShowParameterText(int row) {
  if (form_.udVal(row).Visible()) {
    echoes_.ShowParameterValue(row);
  } else {
    echoes_.ShowParameterRow(row);
  }
}

void PanelSetup::ShowParameterRow(int row, bool shown) {
  form_.ForParameterRow([=](auto& column) { column(row).SetVisible(shown); });
}

}  // namespace marlinset
