// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/interactive_mode.h"

#include "core/frm_start.h"

namespace marlinset {

void LeaveInteractiveMode(FrmStart& form) {
  if (form.mnuOff.Checked()) return;
  form.mnuHD7340.SetEnabled(true);
  form.mnuHD7340Q.SetEnabled(true);
  form.InterTime.SetEnabled(false);
  form.mnuInter.SetChecked(false);
  form.chPrev.SetValue(0);
  form.StatBar(FrmStart::kStandardPanel).SetText("Offline");
  form.ShowVideoPicture(2);
  form.mnuOff.SetChecked(true);
  form.ShowTraffic(kRed);
}

}  // namespace marlinset
