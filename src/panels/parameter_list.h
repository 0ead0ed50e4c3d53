// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class PanelSetup;
class SettingCommands;
struct Variables;

/// The list of numeric parameters: its two sorts, its radix, and the spins that edit the values. Classes 1
/// and 25 are internal: they are sorted with the others but never shown.
///
/// A row finds its records by their description, so parameters with the same description change together.
class ParameterList {
 public:
  ParameterList(Variables& variables, FrmStart& form, PanelSetup& panels, SettingCommands& commands);

  /// Sorts the list by class, then by parameter number, and refills the rows.
  void bClass_Click();
  /// Sorts the list by description, descending as operators know it, and refills the existing rows.
  void bDesc_Click();
  /// Switches the radix in which the values are shown.
  void SetParDisType();

 private:
  void FillRows();
  void ClearCaptions();
  void ChangePara();
  void cSetControl(int row);
  void ValueChanged(int row);

  Variables& vars_;
  FrmStart& form_;
  PanelSetup& panels_;
  SettingCommands& commands_;
};

}  // namespace marlinset
