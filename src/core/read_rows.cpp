// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/read_rows.h"

#include "base/numbers.h"

namespace marlinset {
namespace {

constexpr std::string_view kDevice = "Device";

}  // namespace

OpenTable::OpenTable(DataEngine& engine, const std::string& path, std::string_view nameOrQuery)
    : database(engine.OpenDatabase(path)), rows(database->OpenRecordset(nameOrQuery)) {}

bool EveryRow(const Recordset& /*row*/) {
  return true;
}

bool HasDevice(const Recordset& row) {
  return DoubleOf(row.Fields(kDevice)) != 0;
}

bool HasDeviceText(const Recordset& row) {
  return LeadingNumberOf(TextOf(row.Fields(kDevice))) != 0;
}

}  // namespace marlinset
