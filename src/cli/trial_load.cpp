// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/trial_load.h"

#include <stdexcept>

#include "cli/terminal_run.h"

namespace marlinset {

TrialLoad::TrialLoad(const CommonOptions& options)
    : computer_(options, Computer::ClockKind::kVirtual, dialogs_, fileDialog_),
      tool(computer_.MakePlatform()) {
  dialogs_.onShown = [this](const MessageBox& box, BoxAnswer) { boxes_.push_back(box.text); };
  started_ = StartTool(tool, options, false);
}

void TrialLoad::Load(const std::string& path) {
  boxes_.clear();
  tool.platform.fileDialog.FileName = path;
  tool.configurationFile.ReadConfigFile();
  if (tool.configurationFile.LastRead() == ReadEnd::kLoaded) return;
  throw std::runtime_error(path + ": cannot be loaded: " + (boxes_.empty() ? "" : boxes_.back()));
}

}  // namespace marlinset
