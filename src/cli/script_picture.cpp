// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tool.h"
#include "base/runtime_error.h"
#include "cli/picture_inputs.h"
#include "cli/queued_dialogs.h"
#include "cli/script.h"
#include "picture/geometry.h"
#include "picture/qt/picture_file.h"
#include "platform/posix/file_failure.h"
#include "platform/posix/file_place.h"

namespace marlinset {

Json Script::Picture(const ScriptLine& line) try {
  const std::string file = fileDialog_.FromStart(line.Path());
  if (IsInUse(tool_, file)) throw ScriptError(kReplacesInput);
  if (OwnStream(file)) throw ScriptError("a script's own streams take no picture");
  WritePicture(PlanPicture(tool_.form, tool_.variables), {}, file);
  return Json::object();
} catch (const RuntimeError& failure) {
  throw ScriptError(InOneLine(failure));
}

}  // namespace marlinset
