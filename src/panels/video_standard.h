// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class PanelSetup;
struct Variables;

/// The choice of the video standard, `comVS`: which limits and which list of processing modes follow from it.
/// A choice sends nothing; the unit learns of it with the next whole send. After a load, whose position
/// limits are provisional, an operator's first move of a position brings those of windows, too.
class VideoStandard {
 public:
  VideoStandard(Variables& variables, FrmStart& form, PanelSetup& panels);

  /// Brings the limits of lines and window positions to the selected standard. Room for field digits and
  /// symbols is not taken into account until their boxes are clicked or defaults are applied.
  void ApplyStandardLimits();

 private:
  void Click();
  void TakeTypingBack();

  Variables& vars_;
  FrmStart& form_;
  PanelSetup& panels_;
};

}  // namespace marlinset
