// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/window_keys.h"

#include <QAbstractButton>

namespace marlinset {

void AddKeys(QAbstractButton& button, const QKeySequence& keys) {
  auto* action = new QAction(&button);
  action->setShortcut(keys);
  button.addAction(action);
  QObject::connect(action, &QAction::triggered, &button, &QAbstractButton::click);
}

QList<QAction*> WindowKeys(const QWidget& window) {
  QList<QAction*> actions = window.findChildren<QAction*>();
  actions.removeIf([](const QAction* action) {
    return action->shortcut().isEmpty() || action->shortcutContext() != Qt::WindowShortcut;
  });
  return actions;
}

}  // namespace marlinset
