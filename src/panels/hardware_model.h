// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
struct Variables;

/// Chooses the unit's model, from the menu Hardware Type or from the unit's own identification. Only the Q
/// model has a choice of program output, processing modes and filters. In interactive mode the menu changes
/// nothing.
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
