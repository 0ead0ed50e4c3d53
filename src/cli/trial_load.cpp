// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/trial_load.h"

#include <stdexcept>

namespace marlinset {

TrialLoad::TrialLoad(const CommonOptions& options) : ToolAlone(options, Computer::ClockKind::kVirtual) {
  dialogs_.onShown = [this](const MessageBox& box, BoxAnswer) { boxes_.push_back(box.text); };
  Start(options);
}

void TrialLoad::Load(const std::string& path) {
  boxes_.clear();
  if (ToolAlone::Load(path) == ReadEnd::kLoaded) return;
  throw std::runtime_error(path + ": cannot be loaded: " + (boxes_.empty() ? "" : boxes_.back()));
}

}  // namespace marlinset
