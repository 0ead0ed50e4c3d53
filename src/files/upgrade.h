// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "core/reference_arrays.h"

namespace marlinset {

class FrmStart;
class PanelSetup;
struct Platform;

/// Carries a configuration that was just read forward to the reference database beside the tool: what the
/// database knows better than the file is taken from there, what it has gained is added, what it has dropped
/// goes. The operator is told of both.
///
/// A database or table that can't be opened is told, and the routine ends without a change. Every later
/// failure goes to the caller.
class Upgrade {
 public:
  Upgrade(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels);

  enum class DoubleHeight { kFromFile, kFromDatabase };
  /// Completes the windows of a file from their database rows, which they find by name without regard to case
  /// and to blanks at the ends, and adds the windows that the file lacks. Files of version 1 do not hold the
  /// double height.
  void MergeCharWindows(DoubleHeight doubleHeight);

  /// Sorts the windows by rising number. Where windows with equal numbers come to stand is not told.
  void SortCharWindows();

  /// Makes the rows of the windows' panel anew and fills them from CharWindows. Positions get limits that do
  /// for now: those of the video standard come when the operator next touches them.
  void RebuildWindowRows();

  /// Takes out the parameters that the database lists as deleted. Failure 9 when none would be left.
  void RemoveDeletedParameters();

  /// Adds the parameters that the file lacks, each with a row of its own; those of the file keep their value
  /// and description. `lastRow` is the last row of the list and moves on; it ends as NextParameterClass.
  void MergeParameters(int& lastRow);

 private:
  template <class Rec>
  std::optional<std::vector<Rec>> ReadTable(std::string_view name, RowFilter keep = EveryRow);
  template <class Rec>
  std::optional<std::vector<Rec>> ReadTableOf(std::vector<Rec> Variables::*array);
  CharWindowRec* FindWindow(const std::string& name);

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  PanelSetup& panels_;
};

}  // namespace marlinset
