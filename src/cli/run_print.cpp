// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/program_title.h"
#include "cli/terminal_run.h"
#include "controls/guard.h"
#include "platform/file_system.h"

namespace marlinset {

int RunPrint(const CliOptions& options) {
  const std::string file = AbsolutePath(options.output);  // loading changes to the configuration's folder
  TerminalRun run(options);
  if (!run.Started()) return kExitStart;
  if (!run.LoadConfiguration(options)) return kExitNotDone;
  Tool& tool = run.tool;
  if (!options.configurations.empty()) {
    const std::string name = FileNameOf(options.configurations.front());
    tool.form.SetCaption(TitleOf(name.substr(0, name.find('.'))));
  }
  const bool printed = tool.platform.guard.Run(
      [&] { tool.printCommand.PrintConfig({.target = PrintTarget::kFile, .file = file}); });
  return printed ? kExitDone : kExitNotDone;
}

}  // namespace marlinset
