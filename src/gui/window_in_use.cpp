// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/window_in_use.h"

#include <QApplication>
#include <QMainWindow>
#include <algorithm>

namespace marlinset {

QWidget* WindowInUse() {
  if (QWidget* const active = QApplication::activeWindow()) return active;
  if (QWidget* const dialog = QApplication::activeModalWidget()) return dialog;
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto main = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() && qobject_cast<const QMainWindow*>(window);
  });
  return main == windows.end() ? nullptr : *main;
}

}  // namespace marlinset
