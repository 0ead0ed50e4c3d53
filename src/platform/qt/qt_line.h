// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>
#include <deque>

#include "controls/guard.h"
#include "platform/ms_comm.h"
#include "platform/port_map.h"
#include "platform/qt/network_device.h"
#include "platform/qt/serial_device.h"
#include "wire/reply_gate.h"

namespace marlinset {

/// The line of the real programs: through a serial device or a pseudo terminal by path, or over the network
/// by address. Qt's loop delivers each event separately and under the guard, so handlers may pump, show
/// boxes, and open and close the port. The pump is that of the program, for the wait of a connection.
///
/// The receive buffer holds 1024 bytes. Further bytes are lost, and kCommOverflow reports that once until the
/// tool has read or discarded some bytes.
class QtLine : public MSComm {
 public:
  QtLine(Guard& guard, PortMap& ports, EventPump& pump);
  ~QtLine() override;

  int CommPort() const override { return port_; }
  /// Throws InvalidPropertyValue outside 1 to 4.
  void SetCommPort(int port) override;
  bool PortOpen() const override;
  void SetPortOpen(bool open) override;
  bool Opening() const override { return opening_; }

  void Output(std::span<const std::uint8_t> bytes) override;
  std::size_t OutBufferCount() const override;
  int OutputDiscards() const override { return serial_.Discards() + network_.Discards(); }
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
  void TakeArrivals(std::span<const std::uint8_t> bytes);
  void LineWasQuiet();
  void Deliver();
  void NoteLoss();
  void CloseLost();
  void RaiseLater(int event);
  void Raise(int event);

  Guard& guard_;
  PortMap& ports_;
  int port_ = kLowestPort;
  int event_ = 0;
  bool opening_ = false;
  bool closePending_ = false;  ///< the device has gone, and the close that follows is pending
  bool deviceGone_ = false;    ///< it has gone since the port was last opened; closing does not reset it
  bool overflowing_ = false;   ///< bytes were lost since the tool last made room
  ReplyGate gate_;
  std::deque<std::uint8_t> received_;
  QTimer gap_;  ///< ends when the line has been quiet for long enough
  SerialDevice serial_;
  NetworkDevice network_;
  LineDevice* device_ = &serial_;  ///< of the port that was opened last
  QObject listener_;               ///< receives everything from Qt; destroyed first, with its pending events
};

}  // namespace marlinset
