// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "app/unit/pty.h"
#include "unit/unit_model.h"

namespace marlinset {

/// Connects the model of the unit to a pseudo terminal and the clock: carries bytes both ways at the pace of
/// the line and sleeps whenever nothing is due. It calculates with the moments at which a byte would have
/// passed the line, not with those at which it woke up, and learns how late it usually wakes up, so that its
/// answers are on time on average.
class UnitServer {
 public:
  enum class Direction { kReceived, kSent };
  using FrameListener = std::function<void(LineTime, Direction, const Bytes&)>;

  /// `bitsPerSecond` 0: bytes take no time.
  UnitServer(UnitModel& unit, Pty& line, int bitsPerSecond);

  /// Called for every undamaged frame received and for every answer sent.
  void OnFrame(FrameListener listener) { listener_ = std::move(listener); }

  /// Nanoseconds since the server was created.
  LineTime Now() const;
  /// The line was cut: bytes in transit are lost.
  void LoseLine();
  /// Takes the bytes that wait on the line. Call it when the line's descriptor is readable.
  void ReadLine();
  /// Does what is due by now; returns the time until more is due, nothing if nothing is.
  std::optional<LineTime> RunDue();

 private:
  struct Arrival {
    LineTime at;
    std::uint8_t byte;
  };
  struct Departure {
    LineTime at;
    Bytes bytes;
  };
  void LearnLateness();
  std::optional<LineTime> NextArrival() const;
  std::optional<LineTime> NextDeparture() const;
  void Deliver(LineTime at);
  void TakeReplies(LineTime at);

  UnitModel& unit_;
  Pty& line_;
  LinePace toUnit_;
  LinePace fromUnit_;
  LineTime start_;
  LineTime lateness_{};             ///< of a usual wake-up
  std::optional<LineTime> wakeUp_;  ///< when the sleep now running should end
  std::deque<Arrival> incoming_;
  std::deque<Departure> outgoing_;
  FrameListener listener_;
};

}  // namespace marlinset
