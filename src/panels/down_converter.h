// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class SettingCommands;

/// Processing mode and filters of the down converter, `ComDownConv`. In interactive mode, any choice sends
/// all three to a unit of the Q model. A choice does not count as an unsaved edit.
class DownConverter {
 public:
  DownConverter(FrmStart& form, SettingCommands& commands);
};

}  // namespace marlinset
