// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace marlinset {

/// Holds received bytes back until they make sense as a reply. Real lines deliver a reply in pieces, while
/// the receiver takes whatever is there at one moment for one message; so the gate holds bytes until
///
///   first byte 4, 5 or 6   at once, they are the unit's lone answers
///   first byte 2           the frame is complete: as many bytes as its length byte (offset 1) says, plus 3
///   anything else          the line was quiet for kQuietGapMs
///   whatever it is         more bytes are held than the longest frame has, so it is a flood
///
/// The gate only delays. It releases all bytes that it holds in one piece and in order: it never splits,
/// never drops, and never adds later arrivals to released bytes. It has no clock: its owner restarts a timer
/// of kQuietGapMs after each Feed that leaves bytes held, and calls Quiet when that timer ends.
class ReplyGate {
 public:
  /// After so much quiet, held pieces count as complete. Adapters deliver every 16 ms.
  static constexpr int kQuietGapMs = 25;
  /// 255 fields, start mark, length and checksum.
  static constexpr std::size_t kLongestReply = 258;

  /// Takes in arriving bytes; returns whether bytes are ready to be taken.
  bool Feed(std::span<const std::uint8_t> bytes);
  /// The line was quiet: the held bytes are complete, so releases them.
  void Quiet();
  /// The bytes released since the last call; empty when there are none.
  std::vector<std::uint8_t> Take();
  /// Whether bytes wait for their rest or for a quiet line.
  bool Holding() const { return !held_.empty(); }
  /// Forgets everything; for a port that closes.
  void Clear();

 private:
  bool MakesSense() const;

  std::vector<std::uint8_t> held_;
  std::vector<std::uint8_t> released_;
};

}  // namespace marlinset
