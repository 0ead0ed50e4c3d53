// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unistd.h>

#include <cstdint>
#include <span>
#include <utility>

namespace marlinset {

/// A file descriptor, closed with its owner.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

 private:
  int number_;
};

/// Which way bytes pass through a descriptor, see WaitFor.
enum class Direction { kIn, kOut };
inline constexpr int kForEver = -1;
/// Whether bytes (or the end) can be read, or bytes written, within that time. Also waits for a descriptor
/// that is non-blocking, as whoever opened it may have made it.
bool WaitFor(int descriptor, Direction direction, int milliseconds = kForEver);

/// Writes all bytes, in as many steps as that takes. Returns false with errno if it can't.
bool WriteAll(int descriptor, std::span<const std::uint8_t> bytes);

}  // namespace marlinset
