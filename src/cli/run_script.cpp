// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>
#include <optional>
#include <stdexcept>

#include "app/recording_line.h"
#include "cli/commands.h"
#include "cli/line_input.h"
#include "cli/output.h"
#include "cli/queued_dialogs.h"
#include "cli/queued_printer.h"
#include "cli/script.h"
#include "cli/tool_alone.h"
#include "platform/qt/outside_ends.h"

namespace marlinset {
namespace {

/// Returns false if the output fails; the script then ends, because nobody would see its answers.
bool Print(const std::string& answer) {
  if (answer.empty()) return true;
  return std::puts(answer.c_str()) >= 0 && std::fflush(stdout) == 0;
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
  std::optional<OutsideEnds> ends;  // a script on the virtual clock holds nothing that it could leave behind
  if (!options.virtualClock)
    ends.emplace(OutsideEnds::Duties{.leave = [&] { computer.Line().SetPortOpen(false); }});
  try {
    LineInput input(options.scriptFile, computer.Pump(), !options.virtualClock);
    const bool started = StartTool(tool, options.common, true);
    bool heard = Print(script.StartAnswer(started));
    if (!started) return kExitStart;
    while (heard && !script.Ended()) {
      const auto text = input.Next();
      if (!text) break;
      heard = Print(script.Execute(*text));
    }
  } catch (const std::runtime_error& error) {
    PrintError(error);
    return kExitUsage;
  }
  return script.AllUnderstood() ? kExitDone : kExitUsage;
}

}  // namespace marlinset
