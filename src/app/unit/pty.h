// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "unit/line_time.h"

namespace marlinset {

/// A pseudo terminal in raw mode: the tool opens its far end like a serial port. The far end is kept open on
/// this side too, so that a tool may close it and open it again. Whatever the system refuses is a
/// std::system_error.
class Pty {
 public:
  Pty();
  ~Pty() { Close(); }
  Pty(const Pty&) = delete;
  Pty& operator=(const Pty&) = delete;

  /// The far end's device, "/dev/pts/3".
  const std::string& Device() const { return device_; }
  /// Makes `path` a symbolic link to the device. A link to a terminal device that stands there, of an
  /// earlier unit perhaps and leading nowhere by now, is replaced, anything else is not: failure 75.
  void Link(const std::filesystem::path& path);
  /// Pulls the cable: the tool sees its device vanish, and the link goes too.
  void Close();
  /// Puts it in again, if it was pulled: another device under the same link.
  void Reopen();

  bool IsOpen() const { return near_ >= 0; }
  /// To wait on for input; -1 when closed.
  int Descriptor() const { return near_; }
  /// What has arrived; never waits.
  Bytes Read();
  /// Never waits: what finds no room is lost, as on a line without a handshake.
  void Write(std::span<const std::uint8_t> bytes);

 private:
  void Open();

  int near_ = -1;
  int far_ = -1;
  std::string device_;
  std::filesystem::path link_;    ///< that stands, whole
  std::filesystem::path wanted_;  ///< that was asked for, whole
};

}  // namespace marlinset
