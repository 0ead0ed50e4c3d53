// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/window_ticks.h"

namespace marlinset {

void SetWindowTicks(const FrmStart& form, int row, const CharWindowRec& window) {
  for (const WindowTick& tick : kWindowTicks) (form.*tick.boxes)(row).SetValue(window.*tick.preset ? 1 : 0);
}

int TickedLength(const FrmStart& form, int row, const CharWindowRec& window) {
  int length = window.Length;
  for (const WindowTick& tick : kWindowTicks) {
    if (tick.extraLength && (form.*tick.boxes)(row).On()) length += window.*tick.extraLength;
  }
  return length;
}

}  // namespace marlinset
