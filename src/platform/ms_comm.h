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

/// The tool's serial line: 57600 bit/s, 8 data bits, no parity, 1 stop bit, no handshake. Bytes become
/// readable (InBufferCount) once they make sense as a reply: see reply_gate.h.
class MSComm {
 public:
  virtual ~MSComm() = default;
  MSComm() = default;
  MSComm(const MSComm&) = delete;
  MSComm& operator=(const MSComm&) = delete;

  /// The port that SetPortOpen opens next, 1 to 4.
  virtual int CommPort() const = 0;
  virtual void SetCommPort(int port) = 0;
  virtual bool PortOpen() const = 0;
  /// Opens or closes the port. If it can't be opened, it stays closed and this throws kErrPort with a
  /// description that names the device, the reason and the remedy. Closing never fails and discards both
  /// buffers.
  ///
  /// Opening an address pumps events until the connection is up, 3 s at most. Closing the port meanwhile, or
  /// the end of the program, gives the opening up: it returns with the port closed.
  virtual void SetPortOpen(bool open) = 0;
  /// Whether an opening is under way.
  virtual bool Opening() const { return false; }

  /// Queues bytes for sending; does not wait for the line. Does nothing on a closed port.
  virtual void Output(std::span<const std::uint8_t> bytes) = 0;
  /// Bytes queued but not sent yet.
  virtual std::size_t OutBufferCount() const = 0;
  /// How often queued bytes were discarded unsent: on a line that takes none, and by a closing.
  virtual int OutputDiscards() const { return 0; }
  /// Bytes received but not read.
  virtual std::size_t InBufferCount() const = 0;
  /// Discards the bytes that wait to be read.
  virtual void DiscardInput() = 0;
  /// Removes one byte and returns it; throws SubscriptOutOfRange if the buffer is empty.
  virtual std::uint8_t Input() = 0;
  /// Takes in bytes that have arrived but that the system still holds; otherwise a pump delivers them. Does
  /// not notice a device that has gone.
  virtual void LookForInput() {}

  /// Whether the device went away while its port was open; true until the next opening. kCommDeviceGone may
  /// follow later.
  virtual bool DeviceGone() const { return false; }

  /// Code of the event that OnComm is reporting.
  virtual int CommEvent() const = 0;
  /// Raised on the one thread, from a pump. One listener: the tool's communications.
  void OnComm(std::function<void()> handler) { onComm_ = std::move(handler); }

  /// Looks for devices that have appeared since the last call; otherwise port numbers keep their devices.
  /// Takes the system up to 20 ms.
  virtual void LookForDevices() {}
  /// The device behind a port number ("/dev/ttyUSB0"), empty if there is none.
  virtual std::string DeviceName(int port) const = 0;
  /// Whether that device is present now; a device that the user named need not be. An address counts as
  /// present: only a connection would show.
  virtual bool DeviceIsThere(int port) const = 0;

 protected:
  void RaiseOnComm() const {
    if (onComm_) onComm_();
  }

 private:
  std::function<void()> onComm_;
};

}  // namespace marlinset
