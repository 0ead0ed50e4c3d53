// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unistd.h>

#include <cstdint>
#include <span>
#include <utility>

namespace marlinset {

/// An open file of the system, closed with its owner.
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

/// What may pass through a descriptor, see WaitFor.
enum class Direction { kIn, kOut };
inline constexpr int kForEver = -1;
/// Whether bytes (or the end) can be read, or written, within that time; also one that never waits itself,
/// as whoever opened it may have made it, is waited for so.
bool WaitFor(int descriptor, Direction direction, int milliseconds = kForEver);

/// Writes all of it, however many steps that takes. False with errno when it can't be done.
bool WriteAll(int descriptor, std::span<const std::uint8_t> bytes);

}  // namespace marlinset
