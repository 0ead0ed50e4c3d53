// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "core/frm_start.h"

class QMenuBar;

namespace marlinset {

/// The menus File, Mode, Options, Parameters and Help. `deviceName` tells the device behind a port number,
/// empty when there is none; it is asked each time the menu Options opens.
void FillMenuBar(QMenuBar& bar, FrmStart& form, const std::function<std::string(int)>& deviceName);

}  // namespace marlinset
