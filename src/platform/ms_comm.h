// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace marlinset {

/// Codes of the event that OnComm reports.
constexpr int kCommReceive = 2;
constexpr int kCommCtsTimeout = 1002;
constexpr int kCommFraming = 1004;
constexpr int kCommOverflow = 1008;
/// The device behind the port went away (adapter unplugged, pseudo terminal closed); the port is closed
/// already.
constexpr int kCommDeviceGone = 2001;

constexpr int kLowestPort = 1;
constexpr int kHighestPort = 4;

/// Size of the port's receive buffer in bytes, as the tool has always run it.
constexpr std::size_t kInBufferSize = 1024;

/// The serial line as the tool uses it: 57600 bit/s, 8 data bits, no parity, 1 stop bit, no handshake.
/// Bytes become readable (InBufferCount) when they make sense as a reply: see reply_gate.h.
class MSComm {
 public:
  virtual ~MSComm() = default;
  MSComm() = default;
  MSComm(const MSComm&) = delete;
  MSComm& operator=(const MSComm&) = delete;

  /// The port that the next opening takes, 1 to 4.
  virtual int CommPort() const = 0;
  virtual void SetCommPort(int port) = 0;
  virtual bool PortOpen() const = 0;
  /// Opens or closes. An opening that fails throws RuntimeError kErrPort whose description says which device,
  /// why and the remedy; the port is closed then. Closing never fails and throws away what lies in both
  /// buffers.
  virtual void SetPortOpen(bool open) = 0;

  /// Queues bytes for sending; does not wait for the line. Does nothing on a closed port.
  virtual void Output(std::span<const std::uint8_t> bytes) = 0;
  /// Bytes queued and not gone yet.
  virtual std::size_t OutBufferCount() const = 0;
  /// Bytes received and not read.
  virtual std::size_t InBufferCount() const = 0;
  /// Throws away what is waiting.
  virtual void DiscardInput() = 0;
  /// Removes one byte and returns it; an empty buffer is failure 9.
  virtual std::uint8_t Input() = 0;
  /// Takes in what has arrived and lies with the system still; otherwise a pump brings it. A device that has
  /// gone is not noticed here.
  virtual void LookForInput() {}

  /// The device went away while its port was open; until the next opening. kCommDeviceGone may be yet to
  /// come.
  virtual bool DeviceGone() const { return false; }

  /// Code of the event that OnComm is reporting.
  virtual int CommEvent() const = 0;
  /// Raised on the one thread, from a pump. One listener: the tool's communications.
  void OnComm(std::function<void()> handler) { onComm_ = std::move(handler); }

  /// Looks for devices that have come since the last look; without it port numbers keep what they have. Takes
  /// the system up to 20 ms.
  virtual void LookForDevices() {}
  /// The device behind a port number ("/dev/ttyUSB0"), empty when there is none.
  virtual std::string DeviceName(int port) const = 0;
  /// Whether it is there now; a device that was named need not be.
  virtual bool DeviceIsThere(int port) const = 0;

 protected:
  void RaiseOnComm() const {
    if (onComm_) onComm_();
  }

 private:
  std::function<void()> onComm_;
};

}  // namespace marlinset
