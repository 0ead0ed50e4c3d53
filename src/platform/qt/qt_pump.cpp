// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_pump.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <algorithm>
#include <limits>

namespace marlinset {

QtPump::QtPump() {
  alarm_.setSingleShot(true);
  alarm_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&alarm_, &QTimer::timeout, &alarm_, [this] {
    RunDueTimers();
    DueChanged();
  });
}

std::int64_t QtPump::Now() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start_)
      .count();
}

void QtPump::HandleDue() {
  HandleEvents(false);
}

void QtPump::Pump() {
  HandleEvents(!Ending());
}

void QtPump::Pass(std::int64_t milliseconds) {
  const std::int64_t end = Now() + milliseconds;
  QTimer wake;
  wake.setTimerType(Qt::PreciseTimer);
  wake.start(static_cast<int>(milliseconds));
  while (Now() < end && !Ending()) Pump();
}

void QtPump::End() {
  EventPump::End();
  if (QAbstractEventDispatcher* dispatcher = QCoreApplication::eventDispatcher()) dispatcher->wakeUp();
}

void QtPump::HandleEvents(bool sleep) {
  QCoreApplication::processEvents(sleep ? QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents
                                        : QEventLoop::AllEvents);
  // Also handles what these events triggered: the line reports its bytes this way.
  QCoreApplication::sendPostedEvents();
}

void QtPump::DueChanged() {
  const auto due = NextDue();
  if (!due) {
    alarm_.stop();
    return;
  }
  alarm_.start(static_cast<int>(std::clamp<std::int64_t>(*due - Now(), 0, std::numeric_limits<int>::max())));
}

}  // namespace marlinset
