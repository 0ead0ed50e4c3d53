// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/frm_start.h"

class QMenuBar;

namespace marlinset {

struct WindowHooks;

/// The menus File, Mode, Options, Parameters and Help. The hooks tell the device behind a port number each
/// time the menu Options opens.
void FillMenuBar(QMenuBar& bar, FrmStart& form, const WindowHooks& hooks);

}  // namespace marlinset
