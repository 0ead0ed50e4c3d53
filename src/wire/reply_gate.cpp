// SPDX-License-Identifier: GPL-3.0-or-later
#include "wire/reply_gate.h"

#include <utility>

namespace marlinset {
namespace {

// First bytes of a unit's messages.
constexpr std::uint8_t kFrameStart = 2;
constexpr std::uint8_t kLowestLoneAnswer = 4;
constexpr std::uint8_t kHighestLoneAnswer = 6;

/// Start mark, length and checksum, which the length byte does not count.
constexpr std::size_t kUncounted = 3;

}  // namespace

bool ReplyGate::Feed(std::span<const std::uint8_t> bytes) {
  held_.insert(held_.end(), bytes.begin(), bytes.end());
  if (MakesSense()) Quiet();
  return !released_.empty();
}

void ReplyGate::Quiet() {
  released_.insert(released_.end(), held_.begin(), held_.end());
  held_.clear();
}

std::vector<std::uint8_t> ReplyGate::Take() {
  return std::exchange(released_, {});
}

void ReplyGate::Clear() {
  held_.clear();
  released_.clear();
}

bool ReplyGate::MakesSense() const {
  if (held_.empty()) return false;
  if (held_.size() > kLongestReply) return true;
  const std::uint8_t first = held_[0];
  if (first >= kLowestLoneAnswer && first <= kHighestLoneAnswer) return true;
  return first == kFrameStart && held_.size() >= 2 && held_.size() >= held_[1] + kUncounted;
}

}  // namespace marlinset
