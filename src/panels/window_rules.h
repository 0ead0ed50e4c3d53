// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class SettingCommands;
struct Variables;

/// The rows of the table of character windows: an edit of a row adjusts the room that its window has, and
/// goes to the unit in interactive mode. Also the table's scroll bar.
class WindowRules {
 public:
  WindowRules(Variables& variables, FrmStart& form, SettingCommands& commands);

  /// Brings the window of a row to a place in the picture, `left` in columns and `top` in units of eight
  /// lines of a field; the nearest place within MoveLimitsOf counts, on a character row. A coordinate that
  /// stays leaves its spin alone. Whether one or both change, one message goes to the unit. Does nothing if
  /// the row is not shown, its spins are disabled or MoveLimitsOf finds no limits.
  void Move(int row, int left, int top);

 private:
  bool TakesMove(int row) const;
  void RowChanged(int row);
  void WidthChanged(int row);
  void OnOffChanged(int row);
  void LimitToWidth(int row);

  Variables& vars_;
  FrmStart& form_;
  SettingCommands& commands_;
  bool moving_ = false;  ///< Move sets the spins and sends the message itself
};

}  // namespace marlinset
