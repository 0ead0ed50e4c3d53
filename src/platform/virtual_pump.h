// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>

#include "platform/event_pump.h"

namespace marlinset {

/// An event pump on a clock that jumps: a wait of ten seconds takes microseconds. Time moves only while
/// something waits (Pump) or calls Pass; an idle clock fires nothing.
class VirtualPump : public EventPump {
 public:
  std::int64_t Now() const override { return now_; }
  void HandleDue() override;
  /// Jumps to the next event. If no scheduled event could ever end the wait, that is a fault of the program:
  /// throws std::logic_error instead of hanging.
  void Pump() override;

  /// Runs `action` when the clock reaches `when` (in the next pump if that has passed). Actions of one moment
  /// run in the order in which they were added, before the timers of that moment.
  void At(std::int64_t when, std::function<void()> action);
  void Pass(std::int64_t milliseconds) override;

 private:
  std::optional<std::int64_t> NextEvent() const;

  std::int64_t now_ = 0;
  std::multimap<std::int64_t, std::function<void()>> actions_;
  int idlePumps_ = 0;
};

}  // namespace marlinset
