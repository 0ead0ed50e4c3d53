// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace marlinset {

/// A moment or a span on the line. The virtual unit has no clock of its own: whoever drives it says what time
/// it is, counted from any fixed moment.
using LineTime = std::chrono::nanoseconds;

using Bytes = std::vector<std::uint8_t>;

/// One direction of a serial line that carries a byte as ten bits: start bit, eight data bits, stop bit.
class LinePace {
 public:
  /// 0 bits a second: a line without a speed, bytes arrive at once.
  explicit LinePace(int bitsPerSecond = 0)
      : byteTime_(bitsPerSecond > 0 ? LineTime{std::chrono::seconds{10}} / bitsPerSecond : LineTime{}) {}

  /// Puts `count` bytes on the line, behind those that are on their way; returns when the last has arrived.
  LineTime Send(LineTime now, std::size_t count) {
    free_ = std::max(free_, now) + byteTime_ * static_cast<LineTime::rep>(count);
    return free_;
  }
  /// How long one byte is on the line: 173611 ns at 57600 bit/s.
  LineTime ByteTime() const { return byteTime_; }
  bool Paced() const { return byteTime_ > LineTime{}; }

 private:
  LineTime byteTime_;
  LineTime free_{};
};

}  // namespace marlinset
