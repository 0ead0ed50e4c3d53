// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marlinset {

class Control;
class FrmStart;
struct Variables;

/// Whether a control of the main window is part of the configuration, or depends on it. Every control is,
/// except those that show something else: the link, the unit's model, the menus and buttons, the view.
bool BelongsToConfiguration(const Control& control);

/// Whether what the operator does to this control is no entry of the history even if it changes what belongs
/// to the configuration: a sort, a send, another port.
bool IsPassedOver(const Control& control);

/// Whether quick changes of this control count as one.
bool JoinsQuickChanges(const Control& control);

/// What the operator calls an action on a control: "Vertical of Video Timecode". Names the open file for a
/// command that opens one.
std::string NameOfAction(const Control& control, const FrmStart& form);

/// Whether the control's command opens a file, whose name belongs to the action's.
bool OpensFile(const Control& control);

}  // namespace marlinset
