// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/frm_start.h"

namespace marlinset {

/// Shows the frames of the VITC lines in use. `mode` is an index of oVITC: 0 for one line, 2 for all three.
inline void ShowVitcFrames(FrmStart& form, int mode) {
  form.fVITC1.SetVisible(true);
  form.fVITC2.SetVisible(mode >= 1);
  form.fVITC3.SetVisible(mode >= 2);
}

}  // namespace marlinset
