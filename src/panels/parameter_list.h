// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class PanelSetup;
class SettingCommands;
struct Variables;

/// The list of numeric parameters: its two sorts, its radix, and the spins that edit the values. Classes 1
/// and 25 are internal: they are sorted with the others, and never shown.
///
/// A row finds its records by their description, so parameters that share one change together.
class ParameterList {
 public:
  ParameterList(Variables& variables, FrmStart& form, PanelSetup& panels, SettingCommands& commands);

  /// Sorts the list by class and, within a class, by parameter number, and fills the rows anew.
  void bClass_Click();
  /// Sorts the list by description and fills the rows that are there. "Z" comes first: that is how operators
  /// know the list.
  void bDesc_Click();
  /// Shows the values in the other radix.
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
