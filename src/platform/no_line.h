// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ms_comm.h"
#include "platform/port_map.h"

namespace marlinset {

/// The line of a tool on a virtual clock: it has none, because a real unit takes real time. Opening it always
/// fails as for a port without a device.
class NoLine : public MSComm {
 public:
  int CommPort() const override { return port_; }
  void SetCommPort(int port) override {
    if (port < kLowestPort || port > kHighestPort) throw InvalidPropertyValue();
    port_ = port;
  }
  bool PortOpen() const override { return false; }
  void SetPortOpen(bool open) override {
    if (open) throw NoDeviceBehind(port_);
  }

  void Output(std::span<const std::uint8_t> /*bytes*/) override {}
  std::size_t OutBufferCount() const override { return 0; }
  std::size_t InBufferCount() const override { return 0; }
  void DiscardInput() override {}
  std::uint8_t Input() override { throw SubscriptOutOfRange(); }
  int CommEvent() const override { return 0; }
  std::string DeviceName(int /*port*/) const override { return {}; }
  bool DeviceIsThere(int /*port*/) const override { return false; }

 private:
  int port_ = kLowestPort;
};

}  // namespace marlinset
