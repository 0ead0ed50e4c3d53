// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/bench_tool.h"

#include <stdexcept>

namespace marlinset {

BoxAnswer BenchTool::Refusal::Present(const MessageBox& box) {
  throw std::runtime_error("a message box came up: " + box.text);
}

CommonOptions BenchTool::Options(const std::string& device) const {
  CommonOptions options;
  options.settingsFile = folder_.filePath("settings.ini").toStdString();
  options.ports[0] = device;
  return options;
}

BenchTool::BenchTool(const std::string& device)
    : computer_(Options(device), Computer::ClockKind::kReal, dialogs_, fileDialog_),
      tool_(computer_.MakePlatform()) {
  tool_.ports.NamePorts(Options(device).ports);
  if (!tool_.Start("", false)) throw std::runtime_error("the tool does not start");
  tool_.form.bGetID.Press();
  if (!UnitIsIdentified(tool_.form)) throw std::runtime_error("the unit does not identify itself");
}

BenchTool::BenchTool()
    : computer_(Options(""), Computer::ClockKind::kVirtual, dialogs_, fileDialog_),
      tool_(computer_.MakePlatform()) {
  if (!tool_.Start("", false)) throw std::runtime_error("the tool does not start");
}

}  // namespace marlinset
