// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/load_arrays.h"

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "controls/dialogs.h"
#include "core/record_columns.h"
#include "data/data_engine.h"

namespace marlinset {
namespace {

constexpr std::string_view kFilterQuery =
    "Select * from [Down Converter Filters] where [Description] <> 'Custom' Order By [Order] ";
constexpr std::string_view kDevice = "Device";
constexpr int kExitBadDatabase = 1;

/// An open table or query, and the database that it needs as long as it is open.
struct OpenTable {
  OpenTable(DataEngine& engine, const std::string& path, std::string_view nameOrQuery)
      : database(engine.OpenDatabase(path)), rows(database->OpenRecordset(nameOrQuery)) {}
  std::unique_ptr<Database> database;
  std::unique_ptr<Recordset> rows;
};

template <class Statement>
void IgnoringFailure(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
  } catch (const RuntimeError&) {
    // The statement counts as passed over; the loader goes on with the next one.
  }
}

bool KeepAll(const Recordset&) {
  return true;
}

bool HasDevice(const Recordset& rows) {
  return DoubleOf(rows.Fields(kDevice)) != 0;
}

/// The units' databases hold this table's "Device" as text, sometimes with blanks before the number.
bool HasDeviceText(const Recordset& rows) {
  return LeadingNumberOf(TextOf(rows.Fields(kDevice))) != 0;
}

template <class Rec>
Rec ReadRecord(const Recordset& rows) {
  Rec record;
  for (const auto& column : ColumnsOf<Rec>()) {
    IgnoringFailure([&] { ReadColumn(rows, column, record); });
  }
  return record;
}

template <class Rec>
std::vector<Rec> ReadTable(Recordset& rows, bool (*keep)(const Recordset&)) {
  std::vector<Rec> array;
  const int count = rows.RecordCount();
  IgnoringFailure([&] { rows.MoveFirst(); });
  for (int i = 0; i < count; ++i) {
    // A device that cannot be read is no device: a database without the column shows no windows at all rather
    // than those of units long gone.
    bool kept = false;
    IgnoringFailure([&] { kept = keep(rows); });
    if (kept) array.push_back(ReadRecord<Rec>(rows));
    IgnoringFailure([&] { rows.MoveNext(); });
  }
  return array;
}

template <class Rec>
void Load(Platform& platform, const Variables& variables, std::string_view nameOrQuery,
          std::vector<Rec>& array, bool (*keep)(const Recordset&) = KeepAll) {
  const OpenTable table(platform.engine, variables.DatabasePath, nameOrQuery);
  array = ReadTable<Rec>(*table.rows, keep);
}

}  // namespace

ReferenceDatabase::ReferenceDatabase(Platform& platform, Variables& variables)
    : platform_(platform), variables_(variables) {}

void ReferenceDatabase::LoadArrays() {
  LoadVideoStandards();
  LoadCharMaxPositions();
  LoadCharStyles();
  LoadSlateModes();
  LoadDownConverterModes();
  LoadCharWindows();
  LoadCharSizes();
  LoadSystemParameters();
  LoadHelpMessages();
  LoadCodeSources();
  LoadTimeCodeAssignments();
  LoadDownConverterProcessModes();
  LoadDownConverterFilters();
  LoadSdiProgramOutputs();
}

void ReferenceDatabase::LoadVideoStandards() {
  Load(platform_, variables_, "Video Standards", variables_.VideoStandards);
}
void ReferenceDatabase::LoadCharMaxPositions() {
  Load(platform_, variables_, "Character Max Positions", variables_.CharMaxPositions);
}
void ReferenceDatabase::LoadCharStyles() {
  Load(platform_, variables_, "Character Styles", variables_.CharStyles);
}
void ReferenceDatabase::LoadSlateModes() {
  Load(platform_, variables_, "Virtual Slate Modes", variables_.SlateModes);
}
void ReferenceDatabase::LoadDownConverterModes() {
  Load(platform_, variables_, "Down Converter Modes", variables_.DownConverterModes);
}
void ReferenceDatabase::LoadCharWindows() {
  Load(platform_, variables_, "Character Windows", variables_.CharWindows, HasDevice);
}
void ReferenceDatabase::LoadCharSizes() {
  Load(platform_, variables_, "Character Sizes", variables_.CharSizes);
}
void ReferenceDatabase::LoadSystemParameters() {
  Load(platform_, variables_, "System Parameters", variables_.SystemParameters);
}
void ReferenceDatabase::LoadHelpMessages() {
  Load(platform_, variables_, "Help Messages", variables_.HelpMessages);
}
void ReferenceDatabase::LoadCodeSources() {
  Load(platform_, variables_, "Code Sources", variables_.CodeSources);
}
void ReferenceDatabase::LoadTimeCodeAssignments() {
  Load(platform_, variables_, "Time Code Assignments", variables_.TimeCodeAssignments, HasDeviceText);
}
void ReferenceDatabase::LoadDownConverterProcessModes() {
  Load(platform_, variables_, "Down Converter Process Modes", variables_.DownConverterProcessModes);
}
void ReferenceDatabase::LoadDownConverterFilters() {
  Load(platform_, variables_, kFilterQuery, variables_.DownConverterFilters);
}
void ReferenceDatabase::LoadSdiProgramOutputs() {
  Load(platform_, variables_, "SDI Program Output", variables_.SdiProgramOutputs);
}
void ReferenceDatabase::LoadOperatingModes() {
  Load(platform_, variables_, "Operating Mode", variables_.OperatingModes);
}

void ReferenceDatabase::checkDatabase() {
  try {
    const OpenTable proof(platform_.engine, variables_.DatabasePath, "Character Max Positions");
  } catch (const RuntimeError& failure) {
    platform_.dialogs.Tell("DataBase Error. Expected file at Path " + variables_.DatabasePath +
                           " Error code = " + std::to_string(failure.Number()) + " App Terminated");
    throw ProgramEnd{kExitBadDatabase};
  }
}

std::string ReferenceDatabase::DatabaseVersion() {
  const OpenTable table(platform_.engine, variables_.DatabasePath, "General");
  table.rows->MoveLast();
  return TextOf(table.rows->Fields("Database Version"));
}

std::vector<SystemParameterRec> ReferenceDatabase::ReadParameters(std::string_view table) const {
  std::vector<SystemParameterRec> rows;
  Load(platform_, variables_, table, rows);
  return rows;
}

}  // namespace marlinset
