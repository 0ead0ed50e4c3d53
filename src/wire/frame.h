// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace marlinset {

// The frame on the line between tool and unit, in both directions. With N fields it is N + 3 bytes:
//
//   offset 0      start mark 0x02
//   offset 1      N, counting address, packet id, command and data
//   offset 2      address: 15 link control, 1 video and time code, 2 character inserter, 0 received only
//   offset 3      packet id, the address's fixed companion: 0, 5, 8, 1
//   offset 4      command
//   offset 5      data, N - 3 bytes
//   offset N + 2  checksum: two's complement of the low byte of the sum of offsets 1 to N + 1
//
// The unit also answers with a lone byte: 4 acknowledged, 5 not acknowledged, 6 in local mode.

constexpr std::uint8_t kStartMark = 0x02;
constexpr std::uint8_t kAck = 0x04;
constexpr std::uint8_t kNak = 0x05;
constexpr std::uint8_t kLocalMode = 0x06;

/// Bytes of a frame beyond its fields: start mark, length, checksum.
constexpr std::size_t kFrameOverhead = 3;
/// The longest frame that a length byte can announce.
constexpr std::size_t kLongestFrame = 255 + kFrameOverhead;

/// (256 - (sum and 255)) and 255 over `bytes`.
std::uint8_t Checksum(std::span<const std::uint8_t> bytes);

/// The frame of a message. Throws Overflow above 255 fields.
std::vector<std::uint8_t> EncodeFrame(std::span<const std::uint8_t> fields);

enum class FrameCheck { kGood, kWrongLength, kWrongChecksum };

/// Checks one received frame: its length byte against the number of bytes, then its checksum. Expects the
/// start mark at offset 0 and at least two bytes.
FrameCheck CheckFrame(std::span<const std::uint8_t> bytes);

enum class PieceKind {
  kAnswer,   ///< a lone byte: acknowledged, not acknowledged or local mode
  kFrame,    ///< in order
  kDamaged,  ///< a frame of the length that it announces, with a wrong checksum
  kNoise,    ///< anything else; where the next piece begins is unknown
};

/// A part of bytes that came together.
struct Piece {
  PieceKind kind;
  std::span<const std::uint8_t> bytes;
};

/// The first piece of `bytes`, which are not empty. Noise takes all that follows with it.
Piece FirstPiece(std::span<const std::uint8_t> bytes);

}  // namespace marlinset
