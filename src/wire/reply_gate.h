// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace marlinset {

/// Holds received bytes back until they make sense as a reply. Real lines hand a reply over in pieces, while
/// the receiver takes what is there at one moment for one message; so what arrives is held until
///
///   first byte 4, 5 or 6   at once: the unit's lone answers
///   first byte 2           a whole frame is there: as many bytes as its length byte (offset 1) says, plus 3
///   anything else          the line was quiet for kQuietGapMs
///   whatever it is         more is held than the longest frame, so it is a flood
///
/// The gate only delays. It releases all that it holds in one piece and in order, so it never splits, never
/// drops, and never adds later arrivals to what was handed out. It has no clock: its owner restarts a timer
/// of kQuietGapMs after each Feed that leaves bytes held, and calls Quiet when that timer ends.
class ReplyGate {
 public:
  /// How long the line is quiet before pieces count as all there is. Adapters deliver every 16 ms.
  static constexpr int kQuietGapMs = 25;
  /// 255 fields, start mark, length and checksum.
  static constexpr std::size_t kLongestReply = 258;

  /// Takes an arrival; true when bytes are ready to be taken.
  bool Feed(std::span<const std::uint8_t> bytes);
  /// The line was quiet: what is held is all there is, and is released.
  void Quiet();
  /// The bytes released since the last call; empty when there are none.
  std::vector<std::uint8_t> Take();
  /// Bytes wait for their rest or for a quiet line.
  bool Holding() const { return !held_.empty(); }
  /// Forgets everything, as a port that closes does.
  void Clear();

 private:
  bool MakesSense() const;

  std::vector<std::uint8_t> held_;
  std::vector<std::uint8_t> released_;
};

}  // namespace marlinset
