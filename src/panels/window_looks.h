// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
struct Platform;
class SettingCommands;
struct Variables;

/// The five boxes of ComWin (aspect ratio, slate mode, character style, font size, program output), and the
/// menu that switches the character inserter on and off.
class WindowLooks {
 public:
  WindowLooks(Platform& platform, Variables& variables, FrmStart& form, SettingCommands& commands);

 private:
  void Chosen(int box);
  void SendChoice(int index);
  void ChangeFontSize();
  void SendAllWindows();
  void SwitchInserter(bool on);
  void ShowInserter(bool on);

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  SettingCommands& commands_;
  bool WindowTextChanging_ = false;  ///< the inserter is off during a change of the font size
};

}  // namespace marlinset
