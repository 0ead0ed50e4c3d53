// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/panel_rules.h"

namespace marlinset {

PanelRules::PanelRules(Platform& platform, Variables& variables, FrmStart& form, SettingCommands& commands)
    : routing_(variables, form, commands),
      lineNumbers_(variables, form, commands),
      windowRules_(variables, form, commands),
      windowHighlight_(variables, form, commands),
      windowLooks_(platform, variables, form, commands),
      slateAndMessage_(variables, form, commands),
      whiteFlag_(variables, form, commands),
      downConverter_(form, commands) {}

}  // namespace marlinset
