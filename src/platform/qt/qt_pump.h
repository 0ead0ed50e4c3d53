// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <chrono>

#include "platform/event_pump.h"

namespace marlinset {

/// The event pump of the real programs, on Qt's event loop. Needs a QCoreApplication that outlives it, and
/// lives on its thread. Its timers also tick while one of Qt's own loops runs (a message box's).
class QtPump : public EventPump {
 public:
  QtPump();

  std::int64_t Now() const override;
  void HandleDue() override;
  /// Sleeps indefinitely if nothing is due and no timer runs; End wakes it, and after that it never sleeps
  /// again.
  void Pump() override;
  void Pass(std::int64_t milliseconds) override;
  void End() override;

 protected:
  void DueChanged() override;

 private:
  void HandleEvents(bool sleep);

  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  /// Wakes Qt's loop when the next of our timers is due. A single shot: Qt does not deliver a periodic timer
  /// again while its handler pumps, and our handlers do pump.
  QTimer alarm_;
};

}  // namespace marlinset
