// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/timer.h"

#include <algorithm>

#include "controls/guard.h"

namespace marlinset {

std::optional<std::int64_t> TimerQueue::NextDue() const {
  std::optional<std::int64_t> next;
  for (const Timer* timer : timers_) {
    if (timer->enabled_ && !timer->inHandler_ && timer->intervalMs_ > 0 && (!next || timer->due_ < *next)) {
      next = timer->due_;
    }
  }
  return next;
}

Timer* TimerQueue::EarliestDue(std::int64_t now) const {
  Timer* earliest = nullptr;
  for (Timer* timer : timers_) {
    if (!timer->enabled_ || timer->intervalMs_ <= 0 || timer->due_ > now) continue;
    if (!earliest || timer->due_ < earliest->due_) earliest = timer;
  }
  return earliest;
}

void TimerQueue::RunDueTimers() {
  const std::int64_t now = Now();
  while (Timer* timer = EarliestDue(now)) {
    if (timer->inHandler_) {
      timer->Drop(now);
    } else {
      timer->Fire(now);
    }
  }
}

Timer::Timer(TimerQueue& queue, Guard& guard, std::string name, int intervalMs)
    : queue_(queue), guard_(guard), name_(std::move(name)), intervalMs_(intervalMs) {
  queue_.timers_.push_back(this);
}

Timer::~Timer() {
  std::erase(queue_.timers_, this);
}

void Timer::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  due_ = queue_.Now() + intervalMs_;
  queue_.DueChanged();
}

void Timer::SetInterval(int milliseconds) {
  if (milliseconds == intervalMs_) return;
  intervalMs_ = milliseconds;
  due_ = queue_.Now() + intervalMs_;
  queue_.DueChanged();
}

void Timer::Restart() {
  SetEnabled(false);
  SetEnabled(true);
}

void Timer::Drop(std::int64_t now) {
  const std::int64_t missed = (now - due_) / intervalMs_ + 1;
  due_ += missed * intervalMs_;
}

void Timer::Fire(std::int64_t now) {
  Drop(now);
  inHandler_ = true;
  queue_.DueChanged();  // the handler may pump, and other timers tick meanwhile
  guard_.Run([this] {
    if (handler_) handler_();
  });
  inHandler_ = false;
  queue_.DueChanged();
}

}  // namespace marlinset
