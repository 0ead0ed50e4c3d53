// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/control_types.h"
#include "controls/form.h"
#include "controls/timer.h"

namespace marlinset {

/// The splash screen, shown while the tool loads.
class FrmSplash : public Form {
 public:
  FrmSplash(TimerQueue& timers, Guard& guard)
      : Form("frmSplash", guard), Pause(timers, guard, "Pause", kPauseMs) {}

  PictureBox Image1{*this, "Image1"};
  Timer Pause;  ///< milliseconds that it stays once the tool has loaded

 private:
  static constexpr int kPauseMs = 4000;
};

}  // namespace marlinset
