// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/unit/pty.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "platform/posix/file_failure.h"
#include "platform/posix/file_place.h"

namespace marlinset {
namespace {

int Checked(int result, const char* what) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), what);
  return result;
}

void MakeRaw(int descriptor) {
  termios mode{};
  Checked(tcgetattr(descriptor, &mode), "tcgetattr");
  cfmakeraw(&mode);
  Checked(tcsetattr(descriptor, TCSANOW, &mode), "tcsetattr");
}

/// Decides by name: an earlier unit's device is gone, and opening a serial line would switch its modem lines.
bool IsTerminal(const std::string& place) {
  const std::string device = std::filesystem::path(place).lexically_normal();
  return device.starts_with("/dev/pts/") || device.starts_with("/dev/tty");
}

}  // namespace

Pty::Pty() {
  Open();
}

void Pty::Open() {
  try {
    near_ = Checked(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK), "posix_openpt");
    Checked(grantpt(near_), "grantpt");
    Checked(unlockpt(near_), "unlockpt");
    std::array<char, 128> name{};
    if (const int error = ptsname_r(near_, name.data(), name.size()); error != 0)
      throw std::system_error(error, std::generic_category(), "ptsname_r");
    device_ = name.data();
    far_ = Checked(open(device_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), device_.c_str());
    MakeRaw(far_);
  } catch (...) {
    Close();
    throw;
  }
}

void Pty::Link(const std::filesystem::path& path) {
  std::error_code failure;
  if (std::filesystem::is_symlink(path, failure)) {
    if (!IsTerminal(BehindLinks(path))) {
      throw FileRefused(path, "This is a link to something else than a terminal device, and stays.");
    }
    std::filesystem::remove(path, failure);
  }
  std::filesystem::create_symlink(device_, path, failure);
  if (failure) throw WriteFailure(path, failure.value());
  link_ = wanted_ = std::filesystem::absolute(path);
}

void Pty::Reopen() {
  if (IsOpen()) return;
  Open();
  if (!wanted_.empty()) Link(wanted_);
}

void Pty::Close() {
  std::error_code ignored;
  if (!link_.empty() && std::filesystem::read_symlink(link_, ignored) == device_)
    std::filesystem::remove(link_, ignored);
  link_.clear();
  for (int* descriptor : {&far_, &near_})
    if (const int open = std::exchange(*descriptor, -1); open >= 0) close(open);
}

Bytes Pty::Read() {
  Bytes bytes(1024);
  const ssize_t count = read(near_, bytes.data(), bytes.size());
  bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return bytes;
}

void Pty::Write(std::span<const std::uint8_t> bytes) {
  while (IsOpen() && !bytes.empty()) {
    const ssize_t count = write(near_, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
}

}  // namespace marlinset
