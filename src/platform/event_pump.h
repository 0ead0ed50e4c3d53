// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/timer.h"

namespace marlinset {

/// The tool's one source of events. All logic runs on one thread; handlers interleave only where a routine
/// pumps.
class EventPump : public TimerQueue {
 public:
  /// Handles what is due now: bytes on the line, timer ticks, operator input, repaints. Never sleeps.
  virtual void HandleDue() = 0;
  /// Handles what is due; if nothing is, sleeps until something is and handles that. A wait loop must first
  /// check whether it already has what it waits for.
  virtual void Pump() = 0;

  /// Lets `milliseconds` pass and handles everything due in them; returns early if the program ends.
  virtual void Pass(std::int64_t milliseconds) = 0;

  /// The program ends: every pending wait gives up (see Ending).
  virtual void End() { ending_ = true; }
  /// True once the window was closed or the program was asked to stop; wait and drain loops
  /// end.
  bool Ending() const { return ending_; }

 private:
  bool ending_ = false;
};

}  // namespace marlinset
