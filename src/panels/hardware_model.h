// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
struct Variables;

/// The choice of the unit's model, by the operator in the menu Hardware Type or by the unit's own
/// identification. Only the Q model has a choice of program output, processing modes and filters. In
/// interactive mode the menu changes nothing.
class HardwareModel {
 public:
  HardwareModel(Variables& variables, FrmStart& form);

 private:
  void Choose(bool modelQ);
  void SetModelPlain();
  void SetModelQ();

  Variables& vars_;
  FrmStart& form_;
};

}  // namespace marlinset
