// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "unit/line_time.h"

namespace marlinset {

/// Finds the tool's frames in what arrives on the line, in whatever portions. Bytes in front of a start mark
/// are noise and are passed over, and so is a start mark whose length byte announces less than the three
/// fields that every message has.
class FrameReader {
 public:
  struct Found {
    Bytes frame;
    bool good;  ///< the checksum agrees
  };

  /// Takes bytes that arrived at `now`; returns the frames that are whole with them. A frame that stopped
  /// in the middle for more than kLongestGap is given up, so that a start mark made of noise cannot swallow
  /// the frames that follow.
  std::vector<Found> Take(std::span<const std::uint8_t> bytes, LineTime now);

  /// At least so many more bytes must arrive before another frame can be whole.
  std::size_t BytesToGo() const;

  /// Longer than any stop of a sender in the middle of a frame, shorter than the 100 ms after which the tool
  /// repeats a query.
  static constexpr LineTime kLongestGap = std::chrono::milliseconds{50};

 private:
  bool Whole() const;

  Bytes partial_;
  LineTime last_{};
};

}  // namespace marlinset
