// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/remembered_tick.h"

#include "controls/control_types.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {

void RememberTick(Platform& platform, MenuItem& item, const Setting& setting) {
  item.SetChecked(SettingNumber(platform.settings, setting) == 1);
  item.OnClick([&platform, &item, &setting] {
    item.SetChecked(!item.Checked());
    platform.settings.SaveSetting(setting.key, item.Checked() ? "1" : "0");
  });
}

}  // namespace marlinset
