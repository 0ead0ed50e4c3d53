// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/file_reader.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <new>

#include "platform/posix/file_failure.h"

namespace marlinset {

namespace {

RuntimeError TooLarge(const std::string& path) {
  return FileRefused(path, "It is larger than 64 MiB.");
}

/// `error` 0: the file ended before its length.
RuntimeError NotGiven(const std::string& path, int error) {
  const std::string remedy =
      error == 0 ? path + "\nIt became shorter while it was read." : ReadFailure(path, error).Remedy();
  return {kErrDevice, "Device I/O error", remedy};
}

}  // namespace

FileReader::FileReader(const std::string& path) : path_(path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) throw ReadFailure(path, errno);
  RequireRegular(path, status);
  file_ = Descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file_.IsOpen() || ::fstat(file_.Number(), &status) != 0) throw ReadFailure(path, errno);
  RequireRegular(path, status);  // it may have been replaced since the first check
  if (static_cast<std::uint64_t>(status.st_size) > kMostFileBytes) throw TooLarge(path);
  length_ = static_cast<std::size_t>(status.st_size);
}

std::vector<std::uint8_t> FileReader::ReadAll() try {
  std::vector<std::uint8_t> bytes(length_);
  for (std::size_t have = 0; have < length_;) {
    const ssize_t count =
        ::pread(file_.Number(), bytes.data() + have, length_ - have, static_cast<off_t>(have));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) throw NotGiven(path_, count < 0 ? errno : 0);
    have += static_cast<std::size_t>(count);
  }
  return bytes;
} catch (const std::bad_alloc&) {
  throw RuntimeError(kErrMemory, "Out of memory", path_ + "\nIt does not fit into memory.");
}

std::string ReadText(const std::string& path) {
  const std::vector<std::uint8_t> bytes = FileReader(path).ReadAll();
  return {bytes.begin(), bytes.end()};
}

std::string ReadStream(int stream, const std::string& path) {
  std::string text;
  std::array<char, 65536> block;
  for (;;) {
    const ssize_t count = ::read(stream, block.data(), block.size());
    if (count == 0) return text;
    if (count > 0) {
      text.append(block.data(), static_cast<std::size_t>(count));
      if (text.size() > kMostFileBytes) throw TooLarge(path);
    } else if (errno == EAGAIN) {
      WaitFor(stream, Direction::kIn);
    } else if (errno != EINTR) {
      throw ReadFailure(path, errno);
    }
  }
}

}  // namespace marlinset
