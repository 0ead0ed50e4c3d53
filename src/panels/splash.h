// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace marlinset {

class FrmSplash;

/// The splash's part in the start: it stands while the tool loads and a while longer, then the main window
/// comes.
class Splash {
 public:
  /// `load` brings the tool up, `show` shows the main window.
  Splash(FrmSplash& form, std::function<void()> load, std::function<void()> show);

  /// Shows the splash, loads the tool and starts the splash's time.
  void Load();
  /// The operator does not want to wait. Nothing happens while the tool still loads.
  void Skip();

 private:
  void Pause_Timer();

  FrmSplash& form_;
  std::function<void()> load_;
  std::function<void()> show_;
};

}  // namespace marlinset
