// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>

namespace marlinset {

/// The same number for the same bytes, in every version and on every computer: 64 bits by FNV-1a.
/// Distinguishes contents, except those that somebody made to collide.
constexpr std::uint64_t ContentHash(std::span<const std::uint8_t> bytes) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const std::uint8_t byte : bytes) hash = (hash ^ byte) * 0x100000001B3U;
  return hash;
}

}  // namespace marlinset
