// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class PanelSetup;
struct Variables;

/// The choice of the video standard, `comVS`, which determines the limits and the list of processing modes. A
/// choice sends nothing; the unit learns of it with the next whole send. After a load, whose position limits
/// are provisional, the operator's first move of a position also sets those of the windows.
class VideoStandard {
 public:
  VideoStandard(Variables& variables, FrmStart& form, PanelSetup& panels);

  /// Sets the limits of lines and window positions for the selected standard. Leaves no room for field digits
  /// and symbols until their boxes are clicked or defaults are applied.
  void ApplyStandardLimits();

 private:
  void Click();
  void TakeTypingBack();

  Variables& vars_;
  FrmStart& form_;
  PanelSetup& panels_;
};

}  // namespace marlinset
