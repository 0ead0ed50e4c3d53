// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/echoes.h"
#include "core/records.h"

namespace marlinset {

class ComboBox;
class FrmStart;
struct Variables;
enum class ChoiceId;

/// Turns the reference arrays into the panels. Failures go to the caller: an array that was never filled is
/// failure 9, fewer than ten filters are failure 380.
class PanelSetup {
 public:
  PanelSetup(Variables& variables, FrmStart& form);

  /// Once, at the start: fills all lists, builds the rows of windows and parameters, then SetDefaults.
  void InitPanels();
  /// Brings every item that a New resets to the default of the operating mode and video standard. Leaves the
  /// standard, the inserter's tick, the down converter's modes, the program output and the parameters' values
  /// standing.
  void SetDefaults();
  /// Shows the windows that the operating mode has, one under the other, and hides the others, which go off.
  void ArrangeWindowRows();
  /// Lists the processing modes of the selected video standard and selects the first, without its Click.
  void FillProcessModes();

  enum class LineValues { kKeep, kDefault };
  /// Sets the limits of the white flag line and of the six VITC lines from the rows named by the selected
  /// standard, and with kDefault the white flag line and the first VITC line with its duplicate to the
  /// standard's defaults.
  void SetLineLimits(LineValues values);
  /// Looks for the limits of window positions for the selected standard and font size; without any the last
  /// ones stay.
  void FindCharMaxRow();
  /// Sets the limits of a window's position, without room for field digit and symbol.
  void SetPositionLimits(int row);
  /// Sets the limits of all positions that have only provisional ones for the selected standard and font
  /// size, with room for the field digits and symbols that are ticked. Values stay, also outside.
  void SettlePositionLimits();

  /// The rows of the parameter list, one for each record and in the same order.
  void LoadParameterRow(int row);  ///< builds the row of a record that has none yet, hidden
  void FillParameterRow(int row);  ///< shows the record in its row, unless its class is internal
  /// Shows a row or hides it.
  void ShowParameterRow(int row, bool shown);
  /// Shows the row's value in the radix of the list: the spin's, or the record's where the spin is hidden.
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
