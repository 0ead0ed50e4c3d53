// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/panels/panel_rig.h"

#include <sstream>

#include "cli/queued_dialogs.h"
#include "cli/script.h"

namespace marlinset {

/// The script's own boxes and line stay unused; the tool has those of the rig.
struct PanelRig::Hand {
  explicit Hand(Tool& tool) : script(tool, dialogs, files, line) {}

  QueuedDialogs dialogs;
  QueuedFileDialog files{dialogs};
  VirtualPump still;
  UnitLine unused{still};
  RecordingLine line{unused, still};
  Script script;
};

std::string PanelRig::Answer(const std::string& action) {
  if (!hand_) hand_ = std::make_shared<Hand>(tool);
  return hand_->script.Execute(action);
}

void PanelRig::Do(const std::string& actions) {
  std::istringstream text(actions);
  for (std::string action; std::getline(text, action, ';');) {
    const std::string answer = Answer(std::string(Trim(action)));
    EXPECT_TRUE(answer.empty() || Json::parse(answer).value("ok", false)) << action << answer;
  }
}

}  // namespace marlinset
