// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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
};

}  // namespace marlinset
