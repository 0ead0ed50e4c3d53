// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/terminal_run.h"
#include "controls/guard.h"
#include "picture/geometry.h"
#include "picture/qt/picture_file.h"

namespace marlinset {

int RunPicture(const CliOptions& options) {
  const std::string file = WholePath(options.output);  // loading changes to the configuration's folder
  PictureOrder order = options.picture;
  order.background = WholePath(order.background);
  TerminalRun run(options);
  if (!run.Started()) return kExitStart;
  if (!run.LoadConfiguration(options)) return kExitNotDone;
  const Tool& tool = run.tool;
  const bool written =
      tool.platform.guard.Run([&] { WritePicture(PlanPicture(tool.form, tool.variables), order, file); });
  return written ? kExitDone : kExitNotDone;
}

}  // namespace marlinset
