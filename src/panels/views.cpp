// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/views.h"

#include <iterator>

#include "core/frm_start.h"

namespace marlinset {

Views::Views(FrmStart& form) : form_(form) {
  form_.oView.OnClick([this](int view) { Show(view); });
}

void Views::Show(int view) {
  Frame* const panels[] = {&form_.fCodes,      &form_.fOutputs, &form_.fWindows,
                           &form_.fParameters, &form_.fOptions, &form_.fDownConverter};
  for (Frame* panel : panels) panel->SetVisible(false);
  const bool known = view >= 0 && view < static_cast<int>(std::size(panels));
  panels[known ? view : 0]->SetVisible(true);
}

}  // namespace marlinset
