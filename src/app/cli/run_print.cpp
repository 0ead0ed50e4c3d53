// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>

#include "app/cli/terminal_run.h"
#include "platform/file_system.h"
#include "platform/guard.h"

namespace marlinset {

int RunPrint(const CliOptions& options) {
  // Loading goes to the configuration's folder; the document counts from the folder of the start.
  std::error_code noName;  // without a name there is nothing to write, which the printer tells
  const std::string file = std::filesystem::absolute(options.output, noName).string();
  TerminalRun run(options);
  if (!run.Started()) return kExitStart;
  if (!run.LoadConfiguration(options)) return kExitNotDone;
  Tool& tool = run.tool;
  if (!options.configurations.empty()) {
    const std::string name = FileNameOf(options.configurations.front());
    tool.form.SetCaption(std::string(kProgramTitle) + " - " + name.substr(0, name.find('.')));
  }
  const bool printed = tool.platform.guard.Run(
      [&] { tool.printCommand.PrintConfig({.target = PrintTarget::kFile, .file = file}); });
  return printed ? kExitDone : kExitNotDone;
}

}  // namespace marlinset
