// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractEventDispatcher>
#include <QObject>
#include <QString>
#include <stdexcept>
#include <string>

namespace marlinset {

/// Handles what Qt has to handle now, and what comes of it.
inline void TurnQtsLoop() {
  while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
  }
}

/// The widget of a control, by its name, as a person who automates the window would look it up.
template <class W = QWidget>
W& Widget(const QObject& in, const std::string& name) {
  W* found = in.findChild<W*>(QString::fromStdString(name));
  if (!found) throw std::logic_error("no widget " + name);
  return *found;
}

}  // namespace marlinset
