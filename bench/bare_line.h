// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace marlinset {

/// A serial line with nothing around it: what the system alone needs for an exchange.
class BareLine {
 public:
  explicit BareLine(const std::string& device);
  ~BareLine();
  BareLine(const BareLine&) = delete;
  BareLine& operator=(const BareLine&) = delete;

  /// Writes a message and returns the first byte of what comes back; throws std::runtime_error when nothing
  /// does.
  std::uint8_t Exchange(std::span<const std::uint8_t> message) const;

 private:
  int line_;
};

}  // namespace marlinset
