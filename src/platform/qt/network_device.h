// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHostAddress>
#include <QObject>
#include <QTcpSocket>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "controls/guard.h"
#include "controls/timer.h"
#include "platform/device_address.h"
#include "platform/event_pump.h"
#include "platform/qt/line_device.h"
#include "wire/com_port_control.h"

namespace marlinset {

/// A connection to a device server, by an address (device_address.h). It never listens and never signs in.
///
/// Open pumps events until the connection is up and, for rfc2217://, the server has confirmed the settings of
/// its port: together at most kConnectMs. Close, or the end of the program, ends that wait, and Open returns
/// with the device closed.
///
/// What a server says when it is connected to, a greeting for example, is dropped: it is no unit's reply.
///
/// A connection that breaks is a device that has gone. So is one whose far end has taken nothing for
/// kSilenceMs, for example because the network is unplugged: bytes are never left out.
class NetworkDevice : public LineDevice {
 public:
  static constexpr int kConnectMs = 3000;
  static constexpr int kSilenceMs = 10000;

  NetworkDevice(Guard& guard, EventPump& pump);
  ~NetworkDevice() override { NetworkDevice::Close(); }

  void Open(const std::string& name) override;
  void Close() override;
  bool IsOpen() const override { return open_; }
  void Write(std::span<const std::uint8_t> bytes) override;
  std::size_t BytesToWrite() const override;
  bool HoldsInput() const override;
  bool TakeInput() override;

 private:
  bool GivenUp() const { return givenUp_ || pump_.Ending(); }
  void Await(const Timer& limit, const std::function<bool()>& done);
  void Connect(const DeviceAddress& address, const Timer& limit);
  std::vector<QHostAddress> LookUp(const DeviceAddress& address, const Timer& limit);
  bool TryHost(const QHostAddress& host, int port, const Timer& limit, int mostMs);
  void LetGreetingPass(const DeviceAddress& address, const Timer& limit);
  void Negotiate(const DeviceAddress& address, const Timer& limit);
  void WatchConnection();
  void TakeArrivals();
  void Send(std::span<const std::uint8_t> bytes);
  void Drop();
  void GiveUpSilent();

  Guard& guard_;
  EventPump& pump_;
  bool open_ = false;
  bool givenUp_ = false;                   ///< the opening under way was
  bool gone_ = false;                      ///< the far end has closed, or nothing takes a connection
  std::int64_t connectMs_ = 0;             ///< how long the connection took
  std::string greeting_;                   ///< the beginning of what came before the device was open
  unsigned arrivals_ = 0;                  ///< counts the data that came in
  std::optional<ComPortControl> control_;  ///< for rfc2217://
  QTcpSocket socket_;
  Timer silence_;     ///< runs while bytes wait for a far end that takes none
  QObject listener_;  ///< receives everything from Qt; destroyed first
};

}  // namespace marlinset
