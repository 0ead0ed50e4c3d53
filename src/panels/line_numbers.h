// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
class SettingCommands;
struct Variables;

/// The one, two or three video lines that carry VITC, and their duplicates: which number follows which, and
/// what goes to the unit at once in interactive mode. The line spins count downwards: Max is the lowest line,
/// Min the highest. None of these rules runs when a new limit moves a number.
///
/// The rules run on every change of a line, by the operator, by defaults or by a file. While they work on one
/// change (VitcChanging), including its wait for the unit, further changes are accepted without rules.
class LineNumbers {
 public:
  LineNumbers(Variables& variables, FrmStart& form, SettingCommands& commands);

  /// With two or three lines: makes the lines of the set whose first line is `index` (1, or 5 for the
  /// duplicates) adjacent, moving the first line down to leave room, and shows all numbers. With one line:
  /// shows its number. Ignores any other index: a second or third line keeps the number it was given, and
  /// that is not shown until the first line changes.
  void VitcLines(int index);
  /// With one line, synchronized: the duplicate follows line 1 at its distance, which is never below 1, and
  /// both numbers are shown. The number that tLineNumber(1) still shows tells how line 1 has moved. Does
  /// nothing with two or three lines.
  void LoadStuff(int index);
  /// Runs the rules of the first line, then shows or hides the duplicates.
  void SetDupsDisplay();
  /// Handles a change of line `index`: runs its rules, then sends all lines if changes go out at once.
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
