// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fcntl.h>
#include <gmock/gmock.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <functional>
#include <optional>

#include "app/unit/pty.h"
#include "controls/guard.h"
#include "platform/qt/qt_pump.h"
#include "tests/support/fake_dialogs.h"

namespace marlinset {

/// Qt's loop and timers work only while a QCoreApplication lives.
class QtEnvironment : public testing::Environment {
 public:
  void SetUp() override { application_.emplace(argc_, argv_); }
  void TearDown() override { application_.reset(); }

 private:
  int argc_ = 1;
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  std::optional<QCoreApplication> application_;
};

[[maybe_unused]] inline const auto* const kQt = testing::AddGlobalTestEnvironment(new QtEnvironment);

/// A pump on Qt's loop. Its waits have a generous limit, so that a fault fails a test instead of hanging it.
struct QtBench {
  FakeDialogs dialogs;
  Guard guard{dialogs};
  QtPump pump;

  /// Pumps until `holds`; false if it never does.
  bool Wait(const std::function<bool()>& holds) {
    Timer limit(pump, guard, "limit", 20000);
    bool over = false;
    limit.OnTick([&over] { over = true; });
    limit.SetEnabled(true);
    while (!holds() && !over) pump.Pump();
    return holds();
  }
};

/// The unit's end of a serial line: the tool opens Device() as it opens a port.
class PseudoTerminal : public Pty {
 public:
  ~PseudoTerminal() { close(watch_); }

  /// Sends, and returns when the first bytes can be read at the tool's end.
  void Send(std::span<const std::uint8_t> bytes) {
    Write(bytes);
    pollfd arrival{watch_, POLLIN, 0};
    poll(&arrival, 1, kLimitMs);
  }
  /// Bytes at the tool's end that the tool has not read.
  int Unread() const {
    int count = 0;
    ioctl(watch_, FIONREAD, &count);
    return count;
  }
  /// At least `count` bytes that the tool sent, or fewer if no more come in time.
  Bytes Receive(std::size_t count) {
    Bytes bytes;
    pollfd line{Descriptor(), POLLIN, 0};
    while (bytes.size() < count && poll(&line, 1, kLimitMs) > 0) {
      const Bytes part = Read();
      bytes.insert(bytes.end(), part.begin(), part.end());
    }
    return bytes;
  }

 private:
  static constexpr int kLimitMs = 10000;
  /// The tool's end. Holding it keeps the device's number from the next terminal, also when unplugged.
  const int watch_ = open(Device().c_str(), O_RDWR | O_NOCTTY);
};

}  // namespace marlinset
