// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/splash.h"

#include <utility>

#include "core/frm_splash.h"

namespace marlinset {

Splash::Splash(FrmSplash& form, std::function<void()> load, std::function<void()> show)
    : form_(form), load_(std::move(load)), show_(std::move(show)) {
  form_.Pause.OnTick([this] { Pause_Timer(); });
}

void Splash::Load() {
  form_.SetVisible(true);
  load_();
  form_.Pause.SetEnabled(true);
}

void Splash::Skip() {
  if (form_.Pause.Enabled()) Pause_Timer();
}

void Splash::Pause_Timer() {
  form_.Pause.SetEnabled(false);
  form_.SetVisible(false);
  show_();
}

}  // namespace marlinset
