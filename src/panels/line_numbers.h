// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class SettingCommands;
struct Variables;

/// The one, two or three video lines that carry VITC, and their duplicates: which number follows which, and
/// what goes to the unit at once in interactive mode. The line spins count downwards, Max being the lowest
/// line and Min the highest. A new limit moves numbers without any of this.
///
/// The rules run on every change of a line, by the operator, by defaults or by a file. While a change is
/// being worked off (VitcChanging), its wait for the unit included, further changes are just taken.
class LineNumbers {
 public:
  LineNumbers(Variables& variables, FrmStart& form, SettingCommands& commands);

  /// Two or three lines: the lines of the set whose first line `index` is (1, duplicates 5) become adjacent,
  /// and all numbers are shown; the first line moves down to leave room. One line: shows the number of that
  /// line. Nothing happens for another index: a second or third line keeps what it was given, and its number
  /// is not shown, until the first one changes.
  void VitcLines(int index);
  /// One line, synchronized: the duplicate follows line 1 at its distance, which is never below 1; shows both
  /// numbers. How line 1 has moved is told from the number that tLineNumber(1) still shows. Nothing happens
  /// with two or three lines.
  void LoadStuff(int index);
  /// The operator can set the duplicate of line 1 unless it is synchronized.
  void SetSyncLines();
  /// Runs the rules of the first line and shows the duplicates, or hides them.
  void SetDupsDisplay();
  /// A change of line `index`: its rules, then all lines to the unit.
  void cSetControl(int index);

 private:
  void oVITC_Click(int mode);
  void chVITC_Click();
  void chDups_Click();
  void upVitc1_Change(int index);
  void RunRules(int index);
  void ShowNumber(int index);
  void MoveDuplicateWithLine();
  void SendLines();
  template <class Action>
  void WhileChanging(const Action& action);

  Variables& vars_;
  FrmStart& form_;
  SettingCommands& commands_;
};

}  // namespace marlinset
