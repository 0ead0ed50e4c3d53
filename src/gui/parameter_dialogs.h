// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmDeleteParameter;
class FrmEditParameters;
class QtDialogs;

/// Defines the look of the two windows that add and delete parameters.
void AddParameterWindows(QtDialogs& dialogs, FrmEditParameters& edit, FrmDeleteParameter& remove);

}  // namespace marlinset
