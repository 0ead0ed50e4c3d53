// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/parameter_list.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/frm_start.h"
#include "core/panel_setup.h"
#include "core/variables.h"

namespace marlinset {

ParameterList::ParameterList(Variables& variables, FrmStart& form, PanelSetup& panels)
    : vars_(variables), form_(form), panels_(panels) {
  form_.bClass.OnClick([this] { bClass_Click(); });
  form_.udVal.OnChange([this](int row) { ValueChanged(row); });
}

void ParameterList::bClass_Click() {
  std::vector<SystemParameterRec>& list = vars_.SystemParameters;
  std::stable_sort(list.begin(), list.end(), [](const SystemParameterRec& a, const SystemParameterRec& b) {
    return std::pair(a.Class, a.Parameter) < std::pair(b.Class, b.Parameter);
  });
  ClearCaptions();
  for (int row = 0; row <= UBound(list); ++row) panels_.LoadParameterRow(row);
  FillRows();
  form_.VScroll2.SetValue(0);
  panels_.FitParameterSheet();
}

void ParameterList::ClearCaptions() {
  for (const int row : form_.lClass.Indices()) {
    form_.lClass(row).SetCaption("");
    form_.lParam(row).SetCaption("");
    form_.lDesc(row).SetCaption("");
  }
}

void ParameterList::FillRows() {
  for (int row = 0; row <= UBound(vars_.SystemParameters); ++row) panels_.FillParameterRow(row);
}

/// A row finds its records by their description; a value beyond 16 bits is failure 6.
void ParameterList::ValueChanged(int row) {
  const int value = form_.udVal(row).Value();
  for (SystemParameterRec& parameter : vars_.SystemParameters) {
    if (parameter.Description != form_.lDesc(row).Caption()) continue;
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max()) {
      throw Overflow();
    }
    parameter.Value = static_cast<std::int16_t>(value);
  }
  vars_.ConfigSaved = false;
}

}  // namespace marlinset
