// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmDeleteParameter;
class FrmEditParameters;
class QtDialogs;

/// Tells how the two windows that add and delete parameters look on the screen.
void AddParameterWindows(QtDialogs& dialogs, FrmEditParameters& edit, FrmDeleteParameter& remove);

}  // namespace marlinset
