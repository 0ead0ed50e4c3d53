// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "app/tool.h"
#include "cli/commands.h"
#include "cli/queued_dialogs.h"
#include "platform/qt/outside_ends.h"

namespace marlinset {

/// Starts a tool with the options of the command line; `resume` as in Tool::Start. Returns false if the start
/// failed, after telling the user why.
bool StartTool(Tool& tool, const CommonOptions& options, bool resume);

/// A tool at a terminal, started and with its port chosen: the lowest number that the command line names,
/// otherwise the port in the settings. Boxes go to standard error.
class TerminalRun {
 public:
  explicit TerminalRun(const CliOptions& options);
  bool Started() const { return started_; }
  bool PortOpen() { return computer_.Line().PortOpen(); }
  /// Loads the configuration that was named, if any. Returns false, after telling the user, if it can't.
  bool LoadConfiguration(const CliOptions& options);

 private:
  QueuedDialogs dialogs_;
  QueuedFileDialog fileDialog_{dialogs_};
  Computer computer_;
  bool started_ = false;

 public:
  Tool tool;

 private:
  const OutsideEnds ends_{{.leave = [this] { computer_.Line().SetPortOpen(false); }}};
};

}  // namespace marlinset
