// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class PanelSetup;
struct Variables;

/// The list of numeric parameters.
class ParameterList {
 public:
  ParameterList(Variables& variables, FrmStart& form, PanelSetup& panels);

  /// Sorts the list by class and, within a class, by parameter number, and fills the rows anew.
  void bClass_Click();

 private:
  void ClearCaptions();
  void FillRows();
  void ValueChanged(int row);

  Variables& vars_;
  FrmStart& form_;
  PanelSetup& panels_;
};

}  // namespace marlinset
