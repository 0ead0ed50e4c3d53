// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace marlinset {

/// A moment or a span on the line. The virtual unit has no clock of its own: its driver passes the time,
/// counted from any fixed moment.
using LineTime = std::chrono::nanoseconds;

using Bytes = std::vector<std::uint8_t>;

/// One direction of a serial line that carries a byte as ten bits: start bit, eight data bits, stop bit.
class LinePace {
 public:
  /// With 0 bits per second, bytes arrive at once.
  explicit LinePace(int bitsPerSecond = 0)
      : byteTime_(bitsPerSecond > 0 ? LineTime{std::chrono::seconds{10}} / bitsPerSecond : LineTime{}) {}

  /// Puts `count` bytes on the line after those in transit; returns the time at which the last one arrives.
  LineTime Send(LineTime now, std::size_t count) {
    free_ = std::max(free_, now) + byteTime_ * static_cast<LineTime::rep>(count);
    return free_;
  }
  /// The time that one byte takes: 173611 ns at 57600 bit/s.
  LineTime ByteTime() const { return byteTime_; }
  bool Paced() const { return byteTime_ > LineTime{}; }

 private:
  LineTime byteTime_;
  LineTime free_{};
};

}  // namespace marlinset
