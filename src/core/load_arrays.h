// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/reference_arrays.h"
#include "platform/platform.h"

namespace marlinset {

/// The vocabulary of the tool: reads the tables of the reference database at DatabasePath into the arrays of
/// Variables, as kReferenceArrays says. The tool only reads that file.
///
/// Each loader opens and closes the file by itself, so that the file is never held while the tool runs. A
/// file or table that cannot be opened is a failure for the caller (3024, 3343, 3078). From then on a loader
/// carries on past every failure, statement by statement: a column that is not there, or a value that its
/// field cannot hold, leaves the field empty, 0 or False. A table without rows leaves its array unfilled.
class ReferenceDatabase {
 public:
  ReferenceDatabase(Platform& platform, Variables& variables);

  /// All arrays but OperatingModes, in the order of kReferenceArrays.
  void LoadArrays();

  /// One array.
  template <class Rec>
  void Load(std::vector<Rec> Variables::*array) {
    Fill(ReferenceArrayOf(array));
  }

  /// Proves that the file is there and is a reference database. When it is not, tells the operator and ends
  /// the program (ProgramEnd, status 1).
  void checkDatabase();

  /// The version that the database gives itself: "Database Version" of the last row of "General". Every
  /// failure goes to the caller.
  std::string DatabaseVersion();

  /// The rows of SystemParameters, or of kDeletedParameters, as the file has them now.
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
