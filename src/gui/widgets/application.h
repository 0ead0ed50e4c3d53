// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

#include "gui/widgets/operator_queue.h"

namespace marlinset {

/// The application of every program with a window. It keeps the operator's actions, and knows when no event
/// handler of a widget is at work, so that they can be carried out.
class Application : public QApplication {
  Q_OBJECT
 public:
  Application(int& argc, char** argv) : QApplication(argc, argv) {}
  OperatorQueue& Operator() { return operator_; }
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  bool Deliver(QObject* receiver, QEvent* event);

  OperatorQueue operator_;
  bool keyRepeats_ = false;  ///< the key that may be a shortcut is held down
};

}  // namespace marlinset
