// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/echoes.h"
#include "core/records.h"

namespace marlinset {

class ComboBox;
class FrmStart;
struct Variables;
enum class ChoiceId;

/// Fills the panels from the reference arrays. Throws SubscriptOutOfRange for an array that was never filled,
/// InvalidPropertyValue for fewer than ten filters.
class PanelSetup {
 public:
  PanelSetup(Variables& variables, FrmStart& form);

  /// Runs once, at start: fills all lists, builds the rows of windows and parameters, then calls SetDefaults.
  void InitPanels();
  /// Resets everything that New resets to the defaults of the operating mode and video standard. Leaves alone
  /// the standard, the inserter's tick, the down converter's modes, the program output and the parameters'
  /// values.
  void SetDefaults();
  /// Shows the windows of the operating mode, one below the other; hides the others and unticks their On and
  /// Slate.
  void ArrangeWindowRows();
  /// Lists the processing modes of the selected video standard and selects the first without running its
  /// Click.
  void FillProcessModes();

  enum class LineValues { kKeep, kDefault };
  /// Sets the limits of the white flag line and of the six VITC lines from the rows with the selected
  /// standard's name. kDefault also sets the white flag line, the first VITC line and its duplicate to the
  /// standard's defaults.
  void SetLineLimits(LineValues values);
  /// Finds the limits of window positions for the selected standard and font size. Keeps the last ones if
  /// there are none.
  void FindCharMaxRow();
  /// Sets the limits of a window's position, leaving no room for field digit and symbol.
  void SetPositionLimits(int row);
  /// Replaces provisional limits of window positions by those for the selected standard and font size, with
  /// room for the field digits and symbols that are ticked. Values stay, even outside the limits.
  void SettlePositionLimits();

  /// The rows of the parameter list, one for each record and in the same order.
  void LoadParameterRow(int row);  ///< builds the row, hidden, of a record that has none yet
  void FillParameterRow(int row);  ///< shows the record in its row, unless its class is internal
  /// Shows or hides a row.
  void ShowParameterRow(int row, bool shown);
  /// Shows the row's value in the radix of the list: the spin's, or the record's if the spin is hidden.
  void ShowParameterText(int row);
  /// Fits the parameters' scroll bar to the rows that are shown.
  void FitParameterSheet();

 private:
  void FillRouting();
  void FillRoutingBox(const TimeCodeAssignmentRec& assignment);
  void Refill(ChoiceId choice);
  void SelectRoutingDefaults();
  void ClearRouting();
  void InitLines();
  void NoteVitcDefaults();
  void FillFilters();
  void ResetSlateAndMessage();
  void FillFontSizes();
  void BuildWindowRows();
  void BuildParameterRows();
  void TickDefaults(int row);
  void DefaultWindow(int row);
  void LimitForField(int row);
  bool WindowIsShown(int row) const;
  void ShowWindow(int row, bool shown);

  Variables& vars_;
  FrmStart& form_;
  Echoes echoes_;
};

}  // namespace marlinset
