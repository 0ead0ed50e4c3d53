// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/frame_reader.h"

#include "wire/frame.h"

namespace marlinset {
namespace {
constexpr std::uint8_t kFewestFields = 3;
}

std::size_t FrameReader::BytesToGo() const {
  const std::size_t fields = partial_.size() < 2 ? kFewestFields : partial_[1];
  return fields + kFrameOverhead - partial_.size();
}

bool FrameReader::Whole() const {
  return partial_.size() >= 2 && partial_.size() == partial_[1] + kFrameOverhead;
}

std::vector<FrameReader::Found> FrameReader::Take(std::span<const std::uint8_t> bytes, LineTime now) {
  std::vector<Found> found;
  if (now - last_ > kLongestGap) partial_.clear();
  last_ = now;
  for (const std::uint8_t byte : bytes) {
    if (partial_.size() == 1 && byte < kFewestFields) partial_.clear();  // `byte` may be the real start mark
    if (partial_.empty() && byte != kStartMark) continue;
    partial_.push_back(byte);
    if (!Whole()) continue;
    const bool good = CheckFrame(partial_) == FrameCheck::kGood;
    found.push_back({std::move(partial_), good});
    partial_.clear();
  }
  return found;
}

}  // namespace marlinset
