// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/tool_alone.h"
#include "platform/qt/outside_ends.h"

namespace marlinset {

/// A tool at a terminal, started and with its port chosen: the lowest number that the command line names,
/// otherwise the port in the settings. Boxes go to standard error.
class TerminalRun : public ToolAlone {
 public:
  explicit TerminalRun(const CliOptions& options);
  bool PortOpen() { return computer_.Line().PortOpen(); }
  /// Loads the configuration that was named, if any. Returns false, after telling the user, if it can't.
  bool LoadConfiguration(const CliOptions& options);

 private:
  const OutsideEnds ends_{{.leave = [this] { computer_.Line().SetPortOpen(false); }}};
};

}  // namespace marlinset
