// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class SettingCommands;

/// Processing mode and filters of the down converter, `ComDownConv`: in interactive mode a unit of the Q
/// model gets all three whichever was chosen. No choice counts as an unsaved edit.
class DownConverter {
 public:
  DownConverter(FrmStart& form, SettingCommands& commands);
};

}  // namespace marlinset
