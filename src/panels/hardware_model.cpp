// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/hardware_model.h"

#include "core/frm_start.h"
#include "core/variables.h"
#include "platform/settings_keys.h"

namespace marlinset {
namespace {

void ShowModelFrames(FrmStart& form, bool visible) {
  for (Frame* frame : {&form.fSDIProgramOut, &form.fProcessingMode, &form.fFilters})
    frame->SetVisible(visible);
}

}  // namespace

HardwareModel::HardwareModel(Variables& variables, FrmStart& form) : vars_(variables), form_(form) {
  form_.mnuHD7340.OnClick([this] { Choose(false); });
  form_.mnuHD7340Q.OnClick([this] { Choose(true); });
}

void HardwareModel::Choose(bool modelQ) {
  if (form_.mnuInter.Checked()) return;
  form_.mnuHD7340.SetChecked(!modelQ);
  form_.mnuHD7340Q.SetChecked(modelQ);
  vars_.HardwareType = modelQ ? kModelQ : kModelPlain;
  if (modelQ) {
    SetModelQ();
  } else {
    SetModelPlain();
  }
}

void HardwareModel::SetModelPlain() {
  ShowModelFrames(form_, false);
}
void HardwareModel::SetModelQ() {
  ShowModelFrames(form_, true);
}

}  // namespace marlinset
