// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>
#include <stdexcept>

#include "app/cli/commands.h"
#include "app/cli/line_input.h"
#include "app/cli/queued_dialogs.h"
#include "app/cli/queued_printer.h"
#include "app/cli/script.h"
#include "app/cli/terminal_run.h"
#include "app/recording_line.h"

namespace marlinset {
namespace {

void Print(const std::string& answer) {
  if (answer.empty()) return;
  std::puts(answer.c_str());
  std::fflush(stdout);
}

}  // namespace

int RunScript(const CliOptions& options) {
  QueuedDialogs dialogs;
  for (const std::string& answer : options.answers) dialogs.QueueAnswer(answer);
  const auto clock = options.virtualClock ? Computer::ClockKind::kVirtual : Computer::ClockKind::kReal;
  QueuedFileDialog fileDialog(dialogs);
  for (const std::string& file : options.files) fileDialog.QueueFile(file);
  Computer computer(options.common, clock, dialogs, fileDialog);
  QueuedPrinter printer(dialogs, computer.Printer());
  computer.UsePrinter(printer);
  RecordingLine line(computer.Line(), computer.Pump());
  Platform platform = computer.MakePlatform(line);
  Tool tool(platform);
  Script script(tool, dialogs, fileDialog, line);
  try {
    LineInput input(options.scriptFile, computer.Pump(), !options.virtualClock);
    const bool started = StartTool(tool, options.common, true);
    Print(script.StartAnswer(started));
    if (!started) return kExitStart;
    while (!script.Ended()) {
      const auto text = input.Next();
      if (!text) break;
      Print(script.Execute(*text));
    }
  } catch (const std::runtime_error& error) {
    std::fprintf(stderr, "marlinset-cli: %s\n", error.what());
    return kExitUsage;
  }
  return script.AllUnderstood() ? kExitDone : kExitUsage;
}

}  // namespace marlinset
