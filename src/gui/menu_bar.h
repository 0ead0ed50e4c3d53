// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/frm_start.h"

class QMenuBar;

namespace marlinset {

struct WindowHooks;

/// The menus File, Edit, Mode, View, Options, Parameters and Help. `hooks` supplies the devices behind the
/// ports, searched each time Options opens, and the files last in use.
void FillMenuBar(QMenuBar& bar, FrmStart& form, const WindowHooks& hooks);

}  // namespace marlinset
