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

  /// The operator brings the window of a row to another place in the picture, as the picture shows it: inside
  /// MoveLimitsOf, on a character row. A coordinate that stays keeps its spin. However many change, one
  /// message goes to the unit. Does nothing if the row is not shown, its spins are disabled or nothing limits
  /// it.
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
  bool moving_ = false;  ///< spins follow a move, which ends with the message
};

}  // namespace marlinset
