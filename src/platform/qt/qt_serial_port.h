// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSerialPort>
#include <QTimer>
#include <deque>

#include "controls/guard.h"
#include "platform/ms_comm.h"
#include "platform/port_map.h"
#include "wire/reply_gate.h"

namespace marlinset {

/// The serial line on QSerialPort, for ports and for pseudo terminals by path. Qt's loop delivers each
/// event separately and under the guard, so handlers may pump, show boxes, and open and close the
/// port.
///
/// A line that takes no bytes (its far end has stopped it) stays open. Bytes that it does not take within a
/// second are discarded (OutputDiscards), so that their sender does not wait for ever.
///
/// The receive buffer holds 1024 bytes. Further bytes are lost, and kCommOverflow reports that once until the
/// tool has read or discarded some bytes.
class QtSerialPort : public MSComm {
 public:
  QtSerialPort(Guard& guard, PortMap& ports);
  ~QtSerialPort() override;

  int CommPort() const override { return port_; }
  /// Throws InvalidPropertyValue outside 1 to 4.
  void SetCommPort(int port) override;
  bool PortOpen() const override;
  void SetPortOpen(bool open) override;

  void Output(std::span<const std::uint8_t> bytes) override;
  std::size_t OutBufferCount() const override;
  int OutputDiscards() const override { return discards_; }
  std::size_t InBufferCount() const override { return received_.size(); }
  void DiscardInput() override;
  std::uint8_t Input() override;
  void LookForInput() override;
  bool DeviceGone() const override { return deviceGone_; }

  int CommEvent() const override { return event_; }
  void LookForDevices() override { ports_.Refresh(); }
  std::string DeviceName(int port) const override { return ports_.Device(port); }
  bool DeviceIsThere(int port) const override;

 private:
  void Open();
  void Close();
  void TakeArrivals();
  void LineWasQuiet();
  void Deliver();
  void NoteError(QSerialPort::SerialPortError error);
  bool HungUp() const;
  void CloseLost();
  void PressOn();
  void RaiseLater(int event);
  void Raise(int event);

  Guard& guard_;
  PortMap& ports_;
  int port_ = kLowestPort;
  int event_ = 0;
  bool closePending_ = false;  ///< the device has gone, and the close that follows is pending
  bool deviceGone_ = false;    ///< it has gone since the port was last opened; closing does not reset it
  bool overflowing_ = false;   ///< bytes were lost since the tool last made room
  ReplyGate gate_;
  std::deque<std::uint8_t> received_;
  QSerialPort serial_;
  QTimer gap_;          ///< ends when the line has been quiet for long enough
  QTimer retry_;        ///< runs while bytes wait for a line that takes none
  int retries_ = 0;     ///< in a row that sent nothing
  qint64 waiting_ = 0;  ///< bytes, at the last of them
  int discards_ = 0;    ///< of bytes that waited to be sent
  QObject listener_;    ///< receives everything from Qt; destroyed first, with its pending events
};

}  // namespace marlinset
