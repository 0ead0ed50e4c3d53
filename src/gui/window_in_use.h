// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace marlinset {

/// The window that a new dialog belongs over: the active one, otherwise the last dialog or the main window.
/// No window is active when a dialog has just closed or while the operator uses another program. Null if the
/// tool shows no window.
QWidget* WindowInUse();

}  // namespace marlinset
