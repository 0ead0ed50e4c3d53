// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_line.h"

#include <QMetaObject>
#include <algorithm>

#include "base/finally.h"
#include "platform/device_address.h"

namespace marlinset {

QtLine::QtLine(Guard& guard, PortMap& ports, EventPump& pump)
    : guard_(guard), ports_(ports), network_(guard, pump) {
  gap_.setSingleShot(true);
  gap_.setTimerType(Qt::PreciseTimer);
  gap_.setInterval(ReplyGate::kQuietGapMs);
  QObject::connect(&gap_, &QTimer::timeout, &listener_, [this] { LineWasQuiet(); });
  for (LineDevice* device : {static_cast<LineDevice*>(&serial_), static_cast<LineDevice*>(&network_)}) {
    device->onInput = [this](std::span<const std::uint8_t> bytes) { TakeArrivals(bytes); };
    device->onLost = [this] { NoteLoss(); };
  }
}

QtLine::~QtLine() = default;

void QtLine::SetCommPort(int port) {
  if (port < kLowestPort || port > kHighestPort) throw InvalidPropertyValue();
  port_ = port;
}

bool QtLine::PortOpen() const {
  return device_->IsOpen() && !closePending_ && !opening_;
}

void QtLine::SetPortOpen(bool open) {
  if (opening_) {
    if (!open) device_->Close();
    return;
  }
  if (open == PortOpen() && !closePending_) return;
  Close();
  if (open) Open();
}

bool QtLine::DeviceIsThere(int port) const {
  const std::string device = DeviceName(port);
  return !device.empty() && (IsAddress(device) || PathExists(device));
}

void QtLine::Open() {
  deviceGone_ = false;
  const std::string device = DeviceName(port_);
  if (device.empty()) throw NoDeviceBehind(port_);
  device_ = &serial_;
  if (IsAddress(device)) device_ = &network_;
  opening_ = true;
  try {
    Finally([&] { device_->Open(device); }, [this] { opening_ = false; });
  } catch (const RuntimeError& error) {
    throw RuntimeError(kErrPort, CannotBeOpened(port_) + error.Description(), error.Remedy());
  }
}

void QtLine::Close() {
  device_->Close();
  closePending_ = false;
  gap_.stop();
  gate_.Clear();
  DiscardInput();
}

void QtLine::Output(std::span<const std::uint8_t> bytes) {
  if (PortOpen()) device_->Write(bytes);
}

std::size_t QtLine::OutBufferCount() const {
  return PortOpen() ? device_->BytesToWrite() : 0;
}

void QtLine::DiscardInput() {
  received_.clear();
  overflowing_ = false;
}

std::uint8_t QtLine::Input() {
  if (received_.empty()) throw SubscriptOutOfRange();
  const std::uint8_t byte = received_.front();
  received_.pop_front();
  overflowing_ = false;
  return byte;
}

void QtLine::LookForInput() {
  if (PortOpen() && device_->HoldsInput()) device_->TakeInput();
}

void QtLine::TakeArrivals(std::span<const std::uint8_t> bytes) {
  if (gate_.Feed(bytes)) Deliver();
  if (gate_.Holding()) {
    gap_.start();
  } else {
    gap_.stop();
  }
}

void QtLine::LineWasQuiet() {
  // After a stall of the program, the gap is over but the rest may have arrived: look before giving up on it.
  // TakeArrivals receives such bytes and starts the gap anew.
  if (device_->TakeInput() || gap_.isActive() || !PortOpen()) return;
  gate_.Quiet();
  Deliver();
}

void QtLine::Deliver() {
  const std::vector<std::uint8_t> bytes = gate_.Take();
  const std::size_t fits = std::min(bytes.size(), kInBufferSize - received_.size());
  received_.insert(received_.end(), bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(fits));
  if (fits > 0) RaiseLater(kCommReceive);
  if (fits == bytes.size() || overflowing_) return;
  overflowing_ = true;
  RaiseLater(kCommOverflow);
}

void QtLine::NoteLoss() {
  if (!PortOpen()) return;
  closePending_ = true;
  deviceGone_ = true;
  gap_.stop();
  // Not directly: the device is in the middle of the read or write that failed.
  QMetaObject::invokeMethod(
      &listener_, [this] { CloseLost(); }, Qt::QueuedConnection);
}

void QtLine::CloseLost() {
  if (!closePending_) return;  // meanwhile the tool has closed the port, or reopened it
  Close();
  Raise(kCommDeviceGone);
}

void QtLine::RaiseLater(int event) {
  // Not directly: the device reports no more bytes until this report has returned, and a handler may show a
  // box.
  QMetaObject::invokeMethod(
      &listener_,
      [this, event] {
        const bool stillMatters = event != kCommReceive || !received_.empty();
        if (PortOpen() && stillMatters) Raise(event);
      },
      Qt::QueuedConnection);
}

void QtLine::Raise(int event) {
  const int outer = event_;
  event_ = event;
  guard_.Run([this] { RaiseOnComm(); });
  event_ = outer;
}

}  // namespace marlinset
