// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/white_flag.h"

#include "base/finally.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "link/setting_commands.h"

namespace marlinset {

WhiteFlag::WhiteFlag(Variables& variables, FrmStart& form, SettingCommands& commands)
    : vars_(variables), form_(form), commands_(commands) {
  form_.UpDown1.OnChange([this] { LineChanged(); });
  form_.chEnable.OnClick([this] { EnableClicked(); });
}

void WhiteFlag::LineChanged() {
  if (commands_.Live() && form_.chEnable.On()) commands_.Send(CommandId::kWhiteFlagLine, Sender::kPanel);
  vars_.ConfigSaved = false;
}

/// Pauses polling meanwhile; resumes it unless interactive mode has ended in between.
void WhiteFlag::EnableClicked() {
  if (commands_.Live()) {
    form_.InterTime.SetEnabled(false);
    Finally([this] { SendEnable(); }, [this] { form_.InterTime.SetEnabled(form_.mnuInter.Checked()); });
  }
  vars_.ConfigSaved = false;
}

void WhiteFlag::SendEnable() {
  commands_.Send(form_.chEnable.On() ? CommandId::kWhiteFlagOn : CommandId::kWhiteFlagOff, Sender::kPanel);
  if (form_.chEnable.On()) commands_.Send(CommandId::kWhiteFlagLine, Sender::kPanel);
}

}  // namespace marlinset
