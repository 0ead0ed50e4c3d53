// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/variables.h"
#include "platform/platform.h"

namespace marlinset {

/// The vocabulary of the tool: reads the tables of the reference database at DatabasePath into the arrays of
/// Variables. The tool only reads that file.
///
/// Each loader opens and closes the file by itself, so that the file is never held while the tool runs. A
/// file or table that cannot be opened is a failure for the caller (3024, 3343, 3078). From then on a loader
/// carries on past every failure, statement by statement: a column that is not there, or a value that its
/// field cannot hold, leaves the field empty, 0 or False. A table without rows leaves its array unfilled.
class ReferenceDatabase {
 public:
  ReferenceDatabase(Platform& platform, Variables& variables);

  /// All arrays but OperatingModes.
  void LoadArrays();

  void LoadVideoStandards();
  void LoadCharMaxPositions();
  void LoadCharStyles();
  void LoadSlateModes();
  void LoadDownConverterModes();
  /// Rows whose "Device" is 0 belong to no unit any more and are passed over.
  void LoadCharWindows();
  void LoadCharSizes();
  void LoadSystemParameters();
  void LoadHelpMessages();
  void LoadCodeSources();
  /// Rows whose "Device" is 0 are passed over.
  void LoadTimeCodeAssignments();
  void LoadDownConverterProcessModes();
  /// By rising "Order", without the row "Custom".
  void LoadDownConverterFilters();
  void LoadSdiProgramOutputs();
  void LoadOperatingModes();

  /// Proves that the file is there and is a reference database. When it is not, tells the operator and ends
  /// the program (ProgramEnd, status 1).
  void checkDatabase();

  /// The version that the database gives itself: "Database Version" of the last row of "General". Every
  /// failure goes to the caller.
  std::string DatabaseVersion();

  /// The rows of a table of parameters ("System Parameters", "Deleted Parameters") as the file has them now.
  std::vector<SystemParameterRec> ReadParameters(std::string_view table) const;

 private:
  Platform& platform_;
  Variables& variables_;
};

}  // namespace marlinset
