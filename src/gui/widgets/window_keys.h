// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <QList>

class QAbstractButton;

namespace marlinset {

/// These keys press the button, wherever in its window the focus is.
void AddKeys(QAbstractButton& button, const QKeySequence& keys);

/// What keys reach from anywhere in a window: menu entries, and the buttons with AddKeys. Another window that
/// adds them as its own actions takes the same keys. The underlined letters are not among them, since each
/// window has its own.
QList<QAction*> WindowKeys(const QWidget& window);

}  // namespace marlinset
