// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace marlinset {

class Guard;
class Timer;

/// The timers of one event pump. The pump asks when the next one is due and runs those that are.
class TimerQueue {
 public:
  virtual ~TimerQueue() = default;
  TimerQueue() = default;
  TimerQueue(const TimerQueue&) = delete;
  TimerQueue& operator=(const TimerQueue&) = delete;

  /// Milliseconds of a clock that never runs backwards.
  virtual std::int64_t Now() const = 0;
  /// When the next timer is due, if any runs. Timers inside their own handler don't count.
  std::optional<std::int64_t> NextDue() const;
  /// Runs each timer that is due now, earliest first. Drops a tick that falls due while its own handler still
  /// runs, and missed ticks: a timer ticks once, however late.
  void RunDueTimers();

 protected:
  /// Called when NextDue may have changed.
  virtual void DueChanged() {}

 private:
  friend class Timer;
  Timer* EarliestDue(std::int64_t now) const;
  std::vector<Timer*> timers_;
};

/// A timer with the tool's semantics: periodic, disabled at first, ticking whenever the pump runs.
class Timer {
 public:
  Timer(TimerQueue& queue, Guard& guard, std::string name, int intervalMs);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  const std::string& Name() const { return name_; }
  bool Enabled() const { return enabled_; }
  /// Enabling a running timer changes nothing.
  void SetEnabled(bool enabled);
  /// Whether its handler is running; it does not tick before that ends.
  bool InHandler() const { return inHandler_; }
  int Interval() const { return intervalMs_; }
  /// A new interval restarts a running timer; with 0 it never ticks.
  void SetInterval(int milliseconds);
  /// Starts the full interval now.
  void Restart();
  void OnTick(std::function<void()> handler) { handler_ = std::move(handler); }

 private:
  friend class TimerQueue;
  void Fire(std::int64_t now);
  void Drop(std::int64_t now);

  TimerQueue& queue_;
  Guard& guard_;
  std::string name_;
  std::function<void()> handler_;
  int intervalMs_;
  std::int64_t due_ = 0;
  bool enabled_ = false;
  bool inHandler_ = false;
};

/// A time limit: runs from its beginning, and is no longer enabled when it is over.
class Deadline : public Timer {
 public:
  Deadline(TimerQueue& queue, Guard& guard, std::string name, int milliseconds)
      : Timer(queue, guard, std::move(name), milliseconds) {
    OnTick([this] { SetEnabled(false); });
    SetEnabled(true);
  }
};

}  // namespace marlinset
