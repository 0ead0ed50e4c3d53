// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/tool_alone.h"

namespace marlinset {

bool StartTool(Tool& tool, const CommonOptions& options, bool resume) {
  tool.ports.NamePorts(options.ports);
  try {
    return tool.Start(options.commandText, resume);
  } catch (const ProgramEnd&) {
    return false;
  }
}

ToolAlone::ToolAlone(const CommonOptions& options, Computer::ClockKind clock)
    : computer_(options, clock, dialogs_, fileDialog_), tool(computer_.MakePlatform()) {}

ReadEnd ToolAlone::Load(const std::string& path) {
  tool.platform.fileDialog.FileName = path;
  tool.configurationFile.ReadConfigFile();
  return tool.configurationFile.LastRead();
}

}  // namespace marlinset
