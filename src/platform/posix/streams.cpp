// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/streams.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/descriptor.h"
#include "platform/posix/file_failure.h"
#include "platform/posix/file_place.h"

namespace marlinset {
namespace {

bool IsPipe(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISFIFO(status.st_mode);
}

}  // namespace

void HoldStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // A new file gets the lowest free number, which is this one.
    if (::fcntl(stream, F_GETFD) < 0) (void)::open("/dev/null", O_RDONLY);
  }
}

bool WriteStraight(const std::string& path, std::span<const std::uint8_t> bytes) {
  Descriptor opened;
  auto stream = OwnStream(path);
  if (!stream) {
    if (!IsPipe(path) && !IsNullDevice(path)) return false;
    opened = Descriptor(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!opened.IsOpen()) throw WriteFailure(path, errno);
    stream = opened.Number();
  }
  if (!WriteAll(*stream, bytes)) throw WriteFailure(path, errno);
  return true;
}

}  // namespace marlinset
