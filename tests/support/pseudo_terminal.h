// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace marlinset {

/// The unit's end of a serial line: the tool opens Device() as it opens a port.
class PseudoTerminal {
 public:
  PseudoTerminal() : master_(posix_openpt(O_RDWR | O_NOCTTY)) {
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) {
      throw std::runtime_error("no pseudo terminal");
    }
    device_ = ptsname(master_);
    watch_ = open(device_.c_str(), O_RDWR | O_NOCTTY);
    termios raw{};
    if (watch_ < 0 || tcgetattr(watch_, &raw) != 0) throw std::runtime_error("no pseudo terminal");
    cfmakeraw(&raw);
    tcsetattr(watch_, TCSANOW, &raw);
  }
  ~PseudoTerminal() {
    Unplug();
    close(watch_);
  }
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  const std::string& Device() const { return device_; }
  /// To wait on for what the tool sends.
  int Descriptor() const { return master_; }

  /// Sends and returns when the first bytes have reached the tool's end, where they wait to be read.
  void Send(std::span<const std::uint8_t> bytes, int limitMs = 10000) const {
    while (!bytes.empty()) {
      const ssize_t written = write(master_, bytes.data(), bytes.size());
      if (written <= 0) throw std::runtime_error("cannot write to the pseudo terminal");
      bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    pollfd arrival{watch_, POLLIN, 0};
    poll(&arrival, 1, limitMs);
  }
  /// Bytes that have reached the tool's end and were not read there.
  int Unread() const {
    int count = 0;
    ioctl(watch_, FIONREAD, &count);
    return count;
  }

  /// Exactly `count` bytes that the tool sent, or fewer when no more come for `limitMs`.
  std::vector<std::uint8_t> Receive(std::size_t count, int limitMs = 10000) const {
    std::vector<std::uint8_t> bytes;
    pollfd line{master_, POLLIN, 0};
    while (bytes.size() < count && poll(&line, 1, limitMs) > 0) {
      std::uint8_t byte = 0;
      if (read(master_, &byte, 1) != 1) break;
      bytes.push_back(byte);
    }
    return bytes;
  }

  /// The device goes away, as an adapter that is pulled out.
  void Unplug() {
    if (master_ >= 0) close(master_);
    master_ = -1;
  }

 private:
  int master_;
  int watch_ = -1;  ///< the tool's end, never read from
  std::string device_;
};

}  // namespace marlinset
