// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
struct Variables;

/// Keeps the texts beside the spins, and the positions that CharWindows holds, in step with the spins'
/// values, also where limits pull a value.
class Echoes {
 public:
  Echoes(Variables& variables, FrmStart& form);

  /// Fills echo and stored position of a window's row that was just built, and the same for a parameter's
  /// row.
  void ShowWindowRow(int row);
  void ShowParameterRow(int row);

 private:
  void ShowVertical(int row);
  void ShowHorizontal(int row);
  void ShowParameterValue(int row);
  void ShowVitcLine(int line);

  Variables& vars_;
  FrmStart& form_;
};

}  // namespace marlinset
