// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/descriptor.h"

#include <poll.h>

#include <cerrno>

namespace marlinset {

bool WaitFor(int descriptor, Direction direction, int milliseconds) {
  pollfd query{descriptor, static_cast<short>(direction == Direction::kIn ? POLLIN : POLLOUT), 0};
  return ::poll(&query, 1, milliseconds) != 0;
}

bool WriteAll(int descriptor, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes = bytes.subspan(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN) {
      WaitFor(descriptor, Direction::kOut);
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace marlinset
