// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/descriptor.h"

#include <poll.h>

#include <cerrno>

namespace marlinset {

bool WriteAll(int descriptor, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes = bytes.subspan(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN) {  // whoever opened it may have made it one that does not wait
      pollfd query{descriptor, POLLOUT, 0};
      ::poll(&query, 1, -1);
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace marlinset
