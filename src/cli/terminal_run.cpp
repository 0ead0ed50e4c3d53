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

TerminalRun::TerminalRun(const CliOptions& options) : ToolAlone(options.common, Computer::ClockKind::kReal) {
  for (const std::string& answer : options.answers) dialogs_.QueueAnswer(answer);
  for (const std::string& file : options.files) fileDialog_.QueueFile(file);
  dialogs_.onShown = PrintBox;
  Start(options.common);
}

bool TerminalRun::LoadConfiguration(const CliOptions& options) {
  if (options.configurations.empty()) return true;
  const std::string& path = options.configurations.front();
  const ReadEnd end = Load(path);
  if (end == ReadEnd::kEmpty) PrintFault(path + ": is empty");
  return end == ReadEnd::kLoaded;
}

}  // namespace marlinset
