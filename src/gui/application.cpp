// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/application.h"

#include "platform/finally.h"

namespace marlinset {

bool Application::notify(QObject* receiver, QEvent* event) {
  if (!receiver->isWidgetType()) return QApplication::notify(receiver, event);
  bool taken = false;
  operator_.HandlerBegins();
  Finally([&] { taken = QApplication::notify(receiver, event); }, [this] { operator_.HandlerEnds(); });
  return taken;
}

}  // namespace marlinset
