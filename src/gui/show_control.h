// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

class QWidget;

namespace marlinset {

class FrmStart;

/// Leads the operator to a control of the window's panels, by full name: its panel comes to the front, it is
/// scrolled into view and gets the focus. Does nothing if the control has gone.
void ShowControl(QWidget& window, FrmStart& form, const std::string& name);

}  // namespace marlinset
