// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/terminal_run.h"

#include <unistd.h>

#include <cstdio>

#include "cli/output.h"

namespace marlinset {
namespace {

/// Boxes of a run at a terminal go to standard error.
void PrintBox(const MessageBox& box, BoxAnswer answer) {
  if (::isatty(STDERR_FILENO)) std::fprintf(stderr, "\r\033[K");  // erases the progress line
  PrintFault(box.text);
  if (!box.remedy.empty()) PrintFault(box.remedy);
  if (box.buttons == BoxButtons::kYesNo) {
    std::fprintf(stderr, "  answered: %s\n", answer == BoxAnswer::kYes ? "Yes" : "No");
  }
}

}  // namespace

bool StartTool(Tool& tool, const CommonOptions& options, bool resume) {
  tool.ports.NamePorts(options.ports);
  try {
    return tool.Start(options.commandText, resume);
  } catch (const ProgramEnd&) {
    return false;
  }
}

TerminalRun::TerminalRun(const CliOptions& options)
    : computer_(options.common, Computer::ClockKind::kReal, dialogs_, fileDialog_),
      tool(computer_.MakePlatform()) {
  for (const std::string& answer : options.answers) dialogs_.QueueAnswer(answer);
  for (const std::string& file : options.files) fileDialog_.QueueFile(file);
  dialogs_.onShown = PrintBox;
  started_ = StartTool(tool, options.common, false);
}

bool TerminalRun::LoadConfiguration(const CliOptions& options) {
  if (options.configurations.empty()) return true;
  tool.platform.fileDialog.FileName = options.configurations.front();
  tool.configurationFile.ReadConfigFile();
  const ReadEnd end = tool.configurationFile.LastRead();
  if (end == ReadEnd::kEmpty) PrintFault(options.configurations.front() + ": is empty");
  return end == ReadEnd::kLoaded;
}

}  // namespace marlinset
