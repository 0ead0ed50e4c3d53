// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace marlinset {

/// What a line carries its bytes through: a serial device, or a connection to a device server. Only carries;
/// what the bytes mean, and what an opening that fails is called, is the line's.
class LineDevice {
 public:
  virtual ~LineDevice() = default;
  LineDevice() = default;
  LineDevice(const LineDevice&) = delete;
  LineDevice& operator=(const LineDevice&) = delete;

  /// Opens a device by its name. Throws kErrPort with the reason, which begins in lower case, and what helps.
  virtual void Open(const std::string& name) = 0;
  /// Discards what waits to be sent. An opening under way ends with the device closed.
  virtual void Close() = 0;
  virtual bool IsOpen() const = 0;

  virtual void Write(std::span<const std::uint8_t> bytes) = 0;
  virtual std::size_t BytesToWrite() const = 0;
  /// How often bytes were discarded unsent.
  int Discards() const { return discards_; }

  /// Whether the system holds bytes for the open device.
  virtual bool HoldsInput() const = 0;
  /// Takes in what the system holds, through `onInput`; returns whether there was anything.
  virtual bool TakeInput() = 0;

  std::function<void(std::span<const std::uint8_t>)> onInput;
  /// The open device has gone. Not called from Write, but perhaps in the middle of a read or write of Qt's:
  /// the listener closes it later.
  std::function<void()> onLost;

 protected:
  int discards_ = 0;
};

/// Whether bytes wait in a device of the system, by its descriptor.
bool SystemHoldsInput(int descriptor);

}  // namespace marlinset
