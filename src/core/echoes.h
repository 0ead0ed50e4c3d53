// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
struct Variables;

/// Keeps the texts beside the spins, and the positions that CharWindows holds, in step with the spins'
/// values, also where limits pull a value. The numbers of the VITC lines follow a pull only: whether a change
/// of theirs is shown is up to the rules of the lines.
class Echoes {
 public:
  Echoes(Variables& variables, FrmStart& form);

  /// Fills echo and stored position of a window's row that was just built, and the same for a parameter's
  /// row.
  void ShowWindowRow(int row);
  void ShowParameterRow(int row);
  /// The same from the row's spin.
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
