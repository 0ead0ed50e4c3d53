// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "app/tool.h"
#include "cli/commands.h"
#include "cli/queued_dialogs.h"

namespace marlinset {

/// Starts a tool with the options of the command line; `resume` as in Tool::Start. Returns false if the start
/// failed, after telling the user why.
bool StartTool(Tool& tool, const CommonOptions& options, bool resume);

/// A tool that runs by itself, with everything it needs and answers from queues in place of an operator.
class ToolAlone {
 public:
  /// Whether it has started.
  bool Started() const { return started_; }

 protected:
  ToolAlone(const CommonOptions& options, Computer::ClockKind clock);
  ~ToolAlone() = default;
  /// Once answers are queued and boxes have a place to go to.
  void Start(const CommonOptions& options) { started_ = StartTool(tool, options, false); }
  /// Loads a configuration file as File > Open does, and returns how that ended.
  ReadEnd Load(const std::string& path);

  QueuedDialogs dialogs_;
  QueuedFileDialog fileDialog_{dialogs_};
  Computer computer_;

 private:
  bool started_ = false;

 public:
  Tool tool;
};

}  // namespace marlinset
