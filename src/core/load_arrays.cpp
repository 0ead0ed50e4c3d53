// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/load_arrays.h"

#include "controls/dialogs.h"

namespace marlinset {
namespace {

constexpr int kExitBadDatabase = 1;

}  // namespace

ReferenceDatabase::ReferenceDatabase(Platform& platform, Variables& variables)
    : platform_(platform), variables_(variables) {}

OpenTable ReferenceDatabase::Open(std::string_view nameOrQuery) const {
  return {platform_.engine, variables_.DatabasePath, nameOrQuery};
}

void ReferenceDatabase::LoadArrays() {
  ForEachReferenceArray([this]<class Rec>(const ReferenceArray<Rec>& array) {
    if constexpr (!std::is_same_v<Rec, OperatingModeRec>) Fill(array);
  });
  variables_.ReferenceParameters = variables_.SystemParameters;
}

void ReferenceDatabase::checkDatabase() {
  try {
    Open(ReferenceArrayOf(&Variables::CharMaxPositions).table);
  } catch (const RuntimeError& failure) {
    platform_.dialogs.Tell("DataBase Error. Expected file at Path " + variables_.DatabasePath +
                           " Error code = " + std::to_string(failure.Number()) + " App Terminated");
    throw ProgramEnd{kExitBadDatabase};
  }
}

std::string ReferenceDatabase::DatabaseVersion() {
  const OpenTable table = Open("General");
  table.rows->MoveLast();
  return TextOf(table.rows->Fields("Database Version"));
}

std::vector<SystemParameterRec> ReferenceDatabase::ReadSystemParameters() const {
  return Read<SystemParameterRec>(ReferenceArrayOf(&Variables::SystemParameters).table);
}

std::vector<SystemParameterRec> ReferenceDatabase::ReadDeletedParameters() const {
  return Read<SystemParameterRec>(kDeletedParameters);
}

}  // namespace marlinset
