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

/// Offers to keep duplicates in step with their lines, which only one line can have.
inline void ShowSyncChoice(FrmStart& form, int mode) {
  form.chSync.SetVisible(mode == 0);
}

/// Shows the duplicates of the lines while they are ticked.
inline void ShowDuplicateLines(FrmStart& form) {
  for (const int line : {5, 6, 7}) {
    form.tLineNumber(line).SetVisible(form.chDups.On());
    form.upVitc1(line).SetVisible(form.chDups.On());
  }
}

/// A duplicate that is kept in step takes no clicks of its own.
inline void ShowSyncLines(FrmStart& form) {
  form.upVitc1(5).SetEnabled(!form.chSync.On());
}

}  // namespace marlinset
