// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/frm_start.h"

namespace marlinset {

/// Shows the frames of as many VITC lines as option `mode` of oVITC has: 0 is one line, 2 all three.
inline void ShowVitcFrames(FrmStart& form, int mode) {
  form.fVITC1.SetVisible(true);
  form.fVITC2.SetVisible(mode >= 1);
  form.fVITC3.SetVisible(mode >= 2);
}

}  // namespace marlinset
