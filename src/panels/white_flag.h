// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class SettingCommands;
struct Variables;

/// The white flag: whether a video line carries it, and which. The unit learns of the line only while the
/// flag is on.
class WhiteFlag {
 public:
  WhiteFlag(Variables& variables, FrmStart& form, SettingCommands& commands);

 private:
  void LineChanged();
  void EnableClicked();
  void SendEnable();

  Variables& vars_;
  FrmStart& form_;
  SettingCommands& commands_;
};

}  // namespace marlinset
