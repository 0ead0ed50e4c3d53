// SPDX-License-Identifier: GPL-3.0-or-later
#include "wire/frame.h"

#include <numeric>

#include "base/runtime_error.h"

namespace marlinset {

std::uint8_t Checksum(std::span<const std::uint8_t> bytes) {
  const unsigned sum = std::accumulate(bytes.begin(), bytes.end(), 0U);
  return static_cast<std::uint8_t>((256U - (sum & 255U)) & 255U);
}

std::vector<std::uint8_t> EncodeFrame(std::span<const std::uint8_t> fields) {
  if (fields.size() > 255) throw Overflow();
  std::vector<std::uint8_t> frame{kStartMark, static_cast<std::uint8_t>(fields.size())};
  frame.insert(frame.end(), fields.begin(), fields.end());
  frame.push_back(Checksum(std::span(frame).subspan(1)));
  return frame;
}

FrameCheck CheckFrame(std::span<const std::uint8_t> bytes) {
  if (bytes.size() != bytes[1] + kFrameOverhead) return FrameCheck::kWrongLength;
  const auto body = bytes.subspan(1, bytes.size() - 2);
  return Checksum(body) == bytes.back() ? FrameCheck::kGood : FrameCheck::kWrongChecksum;
}

Piece FirstPiece(std::span<const std::uint8_t> bytes) {
  const std::uint8_t first = bytes[0];
  if (first == kAck || first == kNak || first == kLocalMode) return {PieceKind::kAnswer, bytes.first(1)};
  if (first != kStartMark || bytes.size() < 2 || bytes.size() < bytes[1] + kFrameOverhead)
    return {PieceKind::kNoise, bytes};
  const auto frame = bytes.first(bytes[1] + kFrameOverhead);
  return {CheckFrame(frame) == FrameCheck::kGood ? PieceKind::kFrame : PieceKind::kDamaged, frame};
}

}  // namespace marlinset
