// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;

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
