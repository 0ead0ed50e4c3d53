// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/down_converter.h"

#include "core/frm_start.h"
#include "link/setting_commands.h"

namespace marlinset {

DownConverter::DownConverter(FrmStart& form, SettingCommands& commands) {
  form.ComDownConv.OnClick([&form, &commands] {
    if (commands.Live() && form.ModelIsQ()) {
      commands.Send(CommandId::kDownConverterControl, Sender::kPanel);
    }
  });
}

}  // namespace marlinset
