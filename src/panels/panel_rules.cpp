// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/panel_rules.h"

namespace marlinset {

PanelRules::PanelRules(Platform&, Variables&, FrmStart&, SettingCommands&) {}

}  // namespace marlinset
