// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace marlinset {

class FrmSplash;

/// The splash screen at start: shown while the tool loads and a while longer; then the main window appears.
class Splash {
 public:
  /// `load` starts the tool, `show` shows the main window.
  Splash(FrmSplash& form, std::function<void()> load, std::function<void()> show);

  /// Shows the splash screen, loads the tool and starts the pause.
  void Load();
  /// The operator does not want to wait. Does nothing while the tool is still loading.
  void Skip();

 private:
  void Pause_Timer();

  FrmSplash& form_;
  std::function<void()> load_;
  std::function<void()> show_;
};

}  // namespace marlinset
