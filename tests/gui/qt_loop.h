// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractEventDispatcher>
#include <QObject>
#include <QString>
#include <stdexcept>
#include <string>

namespace marlinset {

/// Handles Qt's pending events and those that they cause.
inline void TurnQtsLoop() {
  while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
  }
}

/// The widget with the name of a control. Throws if there is none.
template <class W = QWidget>
W& Widget(const QObject& in, const std::string& name) {
  W* found = in.findChild<W*>(QString::fromStdString(name));
  if (!found) throw std::logic_error("no widget " + name);
  return *found;
}

}  // namespace marlinset
