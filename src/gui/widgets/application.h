// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

#include "gui/widgets/operator_queue.h"

namespace marlinset {

/// The application of every program with a window. It owns the queue of the operator's actions, and knows
/// when no event handler of a widget is running, so that the queue can carry them out.
class Application : public QApplication {
  Q_OBJECT
 public:
  Application(int& argc, char** argv) : QApplication(argc, argv) {}
  OperatorQueue& Operator() { return operator_; }
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  bool Deliver(QObject* receiver, QEvent* event);

  OperatorQueue operator_;
  bool keyRepeats_ = false;  ///< a key that may be a shortcut is held down
};

}  // namespace marlinset
