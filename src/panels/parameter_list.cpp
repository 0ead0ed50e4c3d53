// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/parameter_list.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

#include "core/frm_start.h"
#include "core/panel_setup.h"
#include "core/variables.h"
#include "link/setting_commands.h"

namespace marlinset {
namespace {

/// Throws Overflow for a value that a record cannot hold: the spins go far beyond its 16 bits.
std::int16_t ValueOf(const SpinControl& spin) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (spin.Value() < Limits::min() || spin.Value() > Limits::max()) throw Overflow();
  return static_cast<std::int16_t>(spin.Value());
}

}  // namespace

ParameterList::ParameterList(Variables& variables, FrmStart& form, PanelSetup& panels,
                             SettingCommands& commands)
    : vars_(variables), form_(form), panels_(panels), commands_(commands) {
  form_.bClass.OnClick([this] { bClass_Click(); });
  form_.bDesc.OnClick([this] { bDesc_Click(); });
  form_.bValue.OnClick([this] { SetParDisType(); });
  form_.udVal.OnChange([this](int row) { ValueChanged(row); });
  form_.VScroll2.OnChange([this] { form_.pParIn.SetTop(FrmStart::kRowHeight - form_.VScroll2.Value()); });
}

void ParameterList::bClass_Click() {
  std::vector<SystemParameterRec>& list = vars_.SystemParameters;
  std::stable_sort(list.begin(), list.end(), [](const SystemParameterRec& a, const SystemParameterRec& b) {
    return std::tie(a.Class, a.Parameter) < std::tie(b.Class, b.Parameter);
  });
  form_.bClass.SetArrow(SortArrow::kRising);
  form_.bDesc.SetArrow(SortArrow::kNone);
  for (int row = 0; row <= UBound(list); ++row) panels_.LoadParameterRow(row);
  FillRows();
  form_.VScroll2.SetValue(0);
}

/// Swaps one by one, since the swaps decide the order of parameters with the same description.
void ParameterList::bDesc_Click() {
  std::vector<SystemParameterRec>& list = vars_.SystemParameters;
  for (SystemParameterRec& first : list) {
    for (SystemParameterRec& second : list) {
      if (second.Description < first.Description) std::swap(first, second);
    }
  }
  form_.bClass.SetArrow(SortArrow::kNone);
  form_.bDesc.SetArrow(SortArrow::kFalling);
  FillRows();
}

void ParameterList::FillRows() {
  ClearCaptions();
  for (int row = 0; row <= UBound(vars_.SystemParameters); ++row) {
    if (form_.udVal.Has(row)) panels_.FillParameterRow(row);
  }
  for (const int row : form_.udVal.Indices()) {
    if (row > UBound(vars_.SystemParameters)) panels_.ShowParameterRow(row, false);
  }
  panels_.FitParameterSheet();
}

void ParameterList::ClearCaptions() {
  for (const int row : form_.lClass.Indices()) {
    form_.lClass(row).SetCaption("");
    form_.lParam(row).SetCaption("");
    form_.lDesc(row).SetCaption("");
  }
}

void ParameterList::SetParDisType() {
  const bool decimal = form_.bValue.Caption() != FrmStart::kDecimalHead;
  form_.bValue.SetCaption(decimal ? FrmStart::kDecimalHead : FrmStart::kHexadecimalHead);
  vars_.ParDisType = decimal ? "Dec" : "Hex";
  ChangePara();
}

/// Each row writes only the record at its own place. A hidden row's spin has no meaning.
void ParameterList::ChangePara() {
  for (int row = 0; row <= UBound(vars_.SystemParameters); ++row) {
    if (!form_.udVal.Has(row)) continue;
    panels_.ShowParameterText(row);
    SystemParameterRec& parameter = At(vars_.SystemParameters, row);
    const bool shown = form_.udVal(row).Visible();
    if (shown && parameter.Description == form_.lDesc(row).Caption()) {
      parameter.Value = ValueOf(form_.udVal(row));
    }
  }
}

void ParameterList::cSetControl(int row) {
  for (SystemParameterRec& parameter : vars_.SystemParameters) {
    if (parameter.Description == form_.lDesc(row).Caption()) parameter.Value = ValueOf(form_.udVal(row));
  }
}

void ParameterList::ValueChanged(int row) {
  cSetControl(row);
  if (form_.mnuInter.Checked()) commands_.SendParameter(row);
  vars_.ConfigSaved = false;
}

}  // namespace marlinset
