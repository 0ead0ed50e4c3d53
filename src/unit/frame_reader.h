// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "unit/line_time.h"

namespace marlinset {

/// Finds the tool's frames in the bytes that arrive on the line, in portions of any size. It skips bytes
/// before a start mark as noise, and a start mark whose length byte announces less than the three fields that
/// every message has.
class FrameReader {
 public:
  struct Found {
    Bytes frame;
    bool good;  ///< the checksum is right
  };

  /// Takes bytes that arrived at `now`; returns the frames that they complete. Drops a frame that paused in
  /// the middle for more than kLongestGap, so that a start mark made of noise cannot swallow the frames that
  /// follow.
  std::vector<Found> Take(std::span<const std::uint8_t> bytes, LineTime now);

  /// At least so many more bytes must arrive before another frame can be complete.
  std::size_t BytesToGo() const;

  /// Longer than any sender pauses in the middle of a frame, shorter than the 100 ms after which the tool
  /// repeats a query.
  static constexpr LineTime kLongestGap = std::chrono::milliseconds{50};

 private:
  bool Whole() const;

  Bytes partial_;
  LineTime last_{};
};

}  // namespace marlinset
