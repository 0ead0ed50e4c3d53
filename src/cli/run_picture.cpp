// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/output.h"
#include "cli/picture_inputs.h"
#include "cli/terminal_run.h"
#include "controls/guard.h"
#include "picture/geometry.h"
#include "picture/qt/picture_file.h"
#include "platform/file_system.h"

namespace marlinset {
namespace {

bool IsInput(const std::string& file, const CliOptions& options, const PictureOrder& order) {
  std::vector<std::string> inputs = options.configurations;
  inputs.push_back(order.background);
  return std::any_of(inputs.begin(), inputs.end(),
                     [&](const std::string& input) { return IsSameFile(AbsolutePath(input), file); });
}

int Refuse(const CliOptions& options) {
  PrintFault(options.output + ": " + kReplacesInput);
  return kExitUsage;
}

}  // namespace

int RunPicture(const CliOptions& options) {
  const std::string file = AbsolutePath(options.output);  // loading changes to the configuration's folder
  PictureOrder order = options.picture;
  order.background = AbsolutePath(order.background);
  if (IsInput(file, options, order)) return Refuse(options);
  TerminalRun run(options);
  if (!run.Started()) return kExitStart;
  if (!run.LoadConfiguration(options)) return kExitNotDone;
  const Tool& tool = run.tool;
  if (IsInUse(tool, file)) return Refuse(options);
  const bool written =
      tool.platform.guard.Run([&] { WritePicture(PlanPicture(tool.form, tool.variables), order, file); });
  return written ? kExitDone : kExitNotDone;
}

}  // namespace marlinset
