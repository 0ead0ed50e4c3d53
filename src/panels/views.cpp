// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/views.h"

#include <cstddef>

#include "core/frm_start.h"

namespace marlinset {

std::array<Frame*, 6> PanelsByView(FrmStart& form) {
  return {&form.fCodes,      &form.fOutputs, &form.fWindows,
          &form.fParameters, &form.fOptions, &form.fDownConverter};
}

Views::Views(FrmStart& form) : form_(form) {
  form_.oView.OnClick([this](int view) { Show(view); });
}

void Views::Show(int view) {
  const auto panels = PanelsByView(form_);
  for (Frame* panel : panels) panel->SetVisible(false);
  const bool known = view >= 0 && view < static_cast<int>(panels.size());
  panels[known ? static_cast<std::size_t>(view) : 0]->SetVisible(true);
}

}  // namespace marlinset
