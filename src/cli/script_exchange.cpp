// SPDX-License-Identifier: GPL-3.0-or-later
// compare and takeover: another file beside the panels.
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "app/tool.h"
#include "base/runtime_error.h"
#include "cli/queued_dialogs.h"
#include "cli/script.h"
#include "platform/file_system.h"
#include "platform/posix/file_failure.h"

namespace marlinset {
namespace {

Json ValueJson(const std::optional<SingleValue>& value) {
  if (!value) return nullptr;
  return std::visit([](const auto& content) { return Json(content); }, *value);
}

}  // namespace

OtherFile Script::ReadOther(const Word& file) const {
  return tool_.comparison.Read(fileDialog_.FromStart(file.text));
}

Json Script::Compare(const ScriptLine& line) try {
  Json differences = Json::array();
  for (const ComparedValue& row : tool_.comparison.With(ReadOther(line.At(0)))) {
    differences.push_back(
        {{"name", row.name}, {"here", ValueJson(row.here)}, {"there", ValueJson(row.there)}});
  }
  return {{"differences", std::move(differences)}};
} catch (const RuntimeError& failure) {
  throw ScriptError(InOneLine(failure));
}

Json Script::TakeOverFrom(const ScriptLine& line) try {
  const OtherFile other = ReadOther(line.At(0));
  const std::vector<ComparedValue> differences = tool_.comparison.With(other);
  std::vector<std::string> names;
  for (std::size_t i = 1; i < line.Count(); ++i) names.push_back(line.At(i).text);
  const bool all = line.Count() == 2 && !line.At(1).quoted && line.At(1).text == "all";
  const std::vector<NewValue> values =
      all ? TakeOver::All(differences) : tool_.takeOver.Chosen(differences, names);
  tool_.takeOver.Set(TakeOverName(FileNameOf(other.path)), values);
  return {{"taken", values.size()}};
} catch (const RuntimeError& failure) {
  throw ScriptError(InOneLine(failure));
}

}  // namespace marlinset
