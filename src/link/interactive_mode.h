// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;

/// Takes the tool off line: the model menu is the operator's again, polling stops, the slate preview goes
/// off, and status bar and indicator show it. Does nothing when the tool is off line already.
void LeaveInteractiveMode(FrmStart& form);

}  // namespace marlinset
