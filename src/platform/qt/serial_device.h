// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSerialPort>
#include <QTimer>

#include "platform/qt/line_device.h"

namespace marlinset {

/// A serial device on QSerialPort, also a pseudo terminal: 57600 bit/s, 8 data bits, no parity, 1 stop bit,
/// no handshake. A line that takes no bytes (its far end has stopped it) stays open; bytes that it does not
/// take within a second are discarded, so that their sender does not wait for ever.
class SerialDevice : public LineDevice {
 public:
  SerialDevice();

  void Open(const std::string& name) override;
  void Close() override;
  bool IsOpen() const override { return serial_.isOpen(); }
  void Write(std::span<const std::uint8_t> bytes) override;
  std::size_t BytesToWrite() const override;
  bool HoldsInput() const override;
  bool TakeInput() override;

 private:
  void NoteError(QSerialPort::SerialPortError error);
  bool HungUp() const;
  void PressOn();

  QSerialPort serial_;
  QTimer retry_;        ///< runs while bytes wait for a line that takes none
  int retries_ = 0;     ///< in a row that sent nothing
  qint64 waiting_ = 0;  ///< bytes, at the last of them
  QObject listener_;    ///< receives everything from Qt; destroyed first
};

}  // namespace marlinset
