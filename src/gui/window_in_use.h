// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace marlinset {

/// The window over which a new dialog opens: the active one, otherwise the topmost modal dialog, otherwise
/// the main window. No window is active when a dialog has just closed or while the operator uses another
/// program. Null if the tool shows no window.
QWidget* WindowInUse();

}  // namespace marlinset
