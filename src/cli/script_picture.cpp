// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tool.h"
#include "base/runtime_error.h"
#include "cli/queued_dialogs.h"
#include "cli/script.h"
#include "picture/geometry.h"
#include "picture/qt/picture_file.h"
#include "platform/posix/file_failure.h"

namespace marlinset {

Json Script::Picture(const ScriptLine& line) try {
  WritePicture(PlanPicture(tool_.form, tool_.variables), {}, fileDialog_.FromStart(line.Path()));
  return Json::object();
} catch (const RuntimeError& failure) {
  throw ScriptError(InOneLine(failure));
}

}  // namespace marlinset
