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

/// Brings a configuration that was just read up to date with the reference database beside the tool: takes
/// what the database knows better than the file, adds what the database has gained, removes what it has
/// dropped, and informs the operator about both.
///
/// If a database or table can't be opened, the routine informs the operator and ends without a change. Every
/// later failure reaches the caller.
class Upgrade {
 public:
  Upgrade(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels);

  enum class DoubleHeight { kFromFile, kFromDatabase };
  /// Completes the windows of a file from their database rows, found by name without regard to case and outer
  /// blanks, and adds the windows that the file lacks. Files of version 1 do not hold the double height.
  void MergeCharWindows(DoubleHeight doubleHeight);

  /// Sorts the windows by ascending number. The order of windows with equal numbers is unspecified.
  void SortCharWindows();

  /// Rebuilds the rows of the windows' panel from CharWindows. Their positions get provisional limits until
  /// the operator next touches one; then those of the video standard apply.
  void RebuildWindowRows();

  /// Removes the parameters that the database lists as deleted. Throws SubscriptOutOfRange if none would be
  /// left.
  void RemoveDeletedParameters();

  /// Adds the parameters that the file lacks, each with its own row; those of the file keep value and
  /// description. Advances `lastRow`, the last row of the list, and stores it in NextParameterClass.
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
