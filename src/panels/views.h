// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

namespace marlinset {

class Frame;
class FrmStart;

/// The panels in the order of their view buttons.
std::array<Frame*, 6> PanelsByView(FrmStart& form);

/// The view buttons `oView`: the main window shows one of its six panels at a time.
class Views {
 public:
  explicit Views(FrmStart& form);
  /// Shows the panel of a view button; shows the inputs for any other index.
  void Show(int view);

 private:
  FrmStart& form_;
};

}  // namespace marlinset
