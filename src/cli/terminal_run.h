// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "app/tool.h"
#include "cli/commands.h"
#include "cli/queued_dialogs.h"
#include "platform/qt/outside_ends.h"

namespace marlinset {

/// Starts a tool with what the command line names; `resume` as in Tool::Start. False when the start failed,
/// which has been told.
bool StartTool(Tool& tool, const CommonOptions& options, bool resume);

/// A tool at a terminal, started and with its port chosen: the one of the lowest number that was named on the
/// command line, otherwise the one that the settings remember. Boxes go to standard error.
class TerminalRun {
 public:
  explicit TerminalRun(const CliOptions& options);
  bool Started() const { return started_; }
  bool PortOpen() { return computer_.Line().PortOpen(); }
  /// Loads the configuration that was named, if one was. False when it can't be read, which has been told.
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
