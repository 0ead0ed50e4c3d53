// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "panels/down_converter.h"
#include "panels/line_numbers.h"
#include "panels/routing.h"
#include "panels/slate_and_message.h"
#include "panels/white_flag.h"
#include "panels/window_highlight.h"
#include "panels/window_looks.h"
#include "panels/window_rules.h"

namespace marlinset {

class FrmStart;
struct Platform;
class SettingCommands;
struct Variables;

/// The rules behind the panels that edit the configuration: what a change of one control does to the others,
/// and what goes to the unit at once in interactive mode.
class PanelRules {
 public:
  PanelRules(Platform& platform, Variables& variables, FrmStart& form, SettingCommands& commands);

  WindowRules& Windows() { return windowRules_; }

 private:
  Routing routing_;
  LineNumbers lineNumbers_;
  WindowRules windowRules_;
  WindowHighlight windowHighlight_;
  WindowLooks windowLooks_;
  SlateAndMessage slateAndMessage_;
  WhiteFlag whiteFlag_;
  DownConverter downConverter_;
};

}  // namespace marlinset
