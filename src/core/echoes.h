// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
struct Variables;

/// Keeps the texts beside the spins, and the positions in CharWindows, up to date with the spins' values,
/// even when new limits pull a value. The numbers of the VITC lines follow only a pull: the rules of the
/// lines decide whether a change is shown.
class Echoes {
 public:
  Echoes(Variables& variables, FrmStart& form);

  /// Shows the positions of a window's row that was just built, and stores them in its record.
  void ShowWindowRow(int row);
  /// Shows a record's value in its row of the parameter list.
  void ShowParameterRow(int row);
  /// Shows the value of the row's spin.
  void ShowParameterValue(int row);
  /// Shows the numbers of all VITC lines.
  void ShowVitcLines();

 private:
  void ShowVertical(int row);
  void ShowHorizontal(int row);
  void ShowVitcLine(int line);

  Variables& vars_;
  FrmStart& form_;
};

}  // namespace marlinset
