// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "unit/line_time.h"

namespace marlinset {

/// A pseudo terminal in raw mode: the tool opens its far end like a serial port. This side also keeps the far
/// end open, so that a tool may close it and open it again. Throws std::system_error if the system refuses a
/// call.
class Pty {
 public:
  Pty();
  ~Pty() { Close(); }
  Pty(const Pty&) = delete;
  Pty& operator=(const Pty&) = delete;

  /// The far end's device, "/dev/pts/3".
  const std::string& Device() const { return device_; }
  /// Makes `path` a symbolic link to the device. It may replace a link to a terminal device, such as an
  /// earlier unit's that now leads nowhere. If anything else is there, throws kErrFileAccess.
  void Link(const std::filesystem::path& path);
  /// Pulls the cable: the tool sees its device vanish, and the link is removed.
  void Close();
  /// Plugs the cable in again, if it was pulled: another device under the same link.
  void Reopen();

  bool IsOpen() const { return near_ >= 0; }
  /// Descriptor to wait on for input; -1 when closed.
  int Descriptor() const { return near_; }
  /// Returns the bytes that have arrived; never waits.
  Bytes Read();
  /// Writes without waiting: bytes that find no room are lost, as on a line without a handshake.
  void Write(std::span<const std::uint8_t> bytes);

 private:
  void Open();

  int near_ = -1;
  int far_ = -1;
  std::string device_;
  std::filesystem::path link_;    ///< the present one, as a full path
  std::filesystem::path wanted_;  ///< the requested one, as a full path
};

}  // namespace marlinset
