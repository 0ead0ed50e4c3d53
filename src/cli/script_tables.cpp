// SPDX-License-Identifier: GPL-3.0-or-later
// export and import: parameters and windows as CSV files.
#include "app/tool.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "cli/picture_inputs.h"
#include "cli/queued_dialogs.h"
#include "cli/script.h"
#include "csv/csv.h"
#include "platform/posix/file_failure.h"
#include "platform/posix/file_place.h"

namespace marlinset {
namespace {

TableKind KindOf(const std::string& word) {
  const auto kind = TableKindOf(word);
  if (!kind) throw ScriptError(Quoted(word) + " is neither parameters nor windows");
  return *kind;
}

}  // namespace

Json Script::Export(const ScriptLine& line) try {
  const auto [word, path] = line.WordAndPath();
  const TableKind kind = KindOf(word);
  const std::string file = fileDialog_.FromStart(path);
  if (IsInUse(tool_, file)) throw ScriptError("The table would replace what it is made from.");
  if (OwnStream(file)) throw ScriptError("a script's own streams take no table");
  tool_.tables.Export(kind, file);
  return Json::object();
} catch (const RuntimeError& failure) {
  throw ScriptError(InOneLine(failure));
}

Json Script::Import(const ScriptLine& line) try {
  const auto [word, path] = line.WordAndPath();
  const TableImport import = tool_.tables.Read(KindOf(word), fileDialog_.FromStart(path));
  return {{"changed", tool_.tables.Take(import)}, {"unknown", import.unknown}};
} catch (const TableError& wrong) {
  throw ScriptError(wrong.what());
} catch (const RuntimeError& failure) {
  throw ScriptError(InOneLine(failure));
}

}  // namespace marlinset
