// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/reference_arrays.h"
#include "platform/platform.h"

namespace marlinset {

/// Reads the tables of the reference database at DatabasePath into the arrays of Variables, as listed in
/// kReferenceArrays. The tool never writes to that file.
///
/// Each loader opens and closes the file itself, so nothing holds the file while the tool runs. Throws
/// kErrNoDatabase, kErrBadDatabase or kErrNoTable if the file or table cannot be opened. After that, a loader
/// skips whatever fails: a missing column, or a value that its field cannot hold, leaves the field empty, 0
/// or False. A table without rows leaves its array unfilled.
class ReferenceDatabase {
 public:
  ReferenceDatabase(Platform& platform, Variables& variables);

  /// Loads all arrays except OperatingModes, in the order of kReferenceArrays, and keeps the parameters as
  /// ReferenceParameters.
  void LoadArrays();

  /// Loads one array.
  template <class Rec>
  void Load(std::vector<Rec> Variables::*array) {
    Fill(ReferenceArrayOf(array));
  }

  /// Checks that the file exists and is a reference database. If not, informs the operator and ends the
  /// program (throws ProgramEnd, status 1).
  void checkDatabase();

  /// The version that the database carries: "Database Version" in the last row of "General". Every failure
  /// reaches the caller.
  std::string DatabaseVersion();

  /// Reads the rows of SystemParameters, or of kDeletedParameters, from the file as it is now.
  std::vector<SystemParameterRec> ReadSystemParameters() const;
  std::vector<SystemParameterRec> ReadDeletedParameters() const;

 private:
  OpenTable Open(std::string_view nameOrQuery) const;

  template <class Rec>
  std::vector<Rec> Read(std::string_view nameOrQuery, RowFilter keep = EveryRow) const {
    return ReadRows<Rec>(*Open(nameOrQuery).rows, keep, OnFailure::kCarryOn);
  }
  template <class Rec>
  void Fill(const ReferenceArray<Rec>& array) {
    variables_.*array.rows = Read<Rec>(array.table, array.keep);
  }

  Platform& platform_;
  Variables& variables_;
};

}  // namespace marlinset
