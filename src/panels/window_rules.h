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

 private:
  void RowChanged(int row);
  void WidthChanged(int row);
  void OnOffChanged(int row);
  void LimitToWidth(int row);

  Variables& vars_;
  FrmStart& form_;
  SettingCommands& commands_;
};

}  // namespace marlinset
