// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class SettingCommands;
struct Variables;

/// In interactive mode, the unit highlights the window whose row the mouse is over, so that the operator sees
/// on the monitor which row is which. Over a window's name, the mouse must first rest.
class WindowHighlight {
 public:
  WindowHighlight(Variables& variables, FrmStart& form, SettingCommands& commands);

 private:
  void ConnectRows();
  void ConnectSurroundings();
  void Rest(int row);
  void Rested();
  void Highlight(int row);
  void Leave(int row);
  void ClearOthers(int row);
  bool IsHighlighted(int row) const;

  Variables& vars_;
  FrmStart& form_;
  SettingCommands& commands_;
  int restingRow_ = 0;
};

}  // namespace marlinset
