// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_serial_port.h"

#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>

#include <QByteArray>
#include <QFileInfo>
#include <QMetaObject>
#include <QString>
#include <algorithm>
#include <cerrno>
#include <utility>

namespace marlinset {
namespace {

constexpr int kRetryMs = 50;
constexpr int kMostRetries = 20;

std::string InUse(const std::string& device) {
  return device + " is in use by another program. Close that program, or choose another port.";
}

/// Why a device could not be opened, and what helps.
std::string Reason(const std::string& device, const QFileInfo& node, const QSerialPort& serial) {
  if (serial.error() == QSerialPort::DeviceNotFoundError) {
    return "there is no device " + device + ". Plug it in, or choose another port.";
  }
  if (node.isDir() || node.isFile()) {
    return device + " is not a serial device. Name the device of the port instead.";
  }
  if (serial.error() != QSerialPort::PermissionError) {
    return "opening " + device + " failed (" + serial.errorString().toStdString() +
           "). Check the device, or choose another port.";
  }
  if (node.isReadable() && node.isWritable()) return InUse(device);
  const std::string denied = "you have no permission to use " + device + ". ";
  if (node.permission(QFileDevice::ReadGroup | QFileDevice::WriteGroup)) {
    return denied + "Add yourself to the group " + node.group().toStdString() +
           ", which owns the device, and log in again.";
  }
  return denied + "Ask the administrator of this computer for it; the device belongs to " +
         node.owner().toStdString() + ".";
}

/// Many terminal programs claim a port only by an advisory lock, which does not keep others from opening it:
/// then each would get a part of each reply. Returns false if another program has claimed the port; otherwise
/// claims it until it is closed.
bool Claim(const QSerialPort& serial) {
  return flock(serial.handle(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

/// The path by which to open a device. QSerialPort locks a device by its name, so it gets the real one of
/// several names; a name without a folder is also looked up in /dev.
QString RealName(const std::string& device) {
  QString name = QString::fromStdString(device);
  for (const QString& path : {name, "/dev/" + name}) {
    QString real = QFileInfo(path).canonicalFilePath();
    if (!real.isEmpty()) return real;
  }
  return name;
}

}  // namespace

QtSerialPort::QtSerialPort(Guard& guard, PortMap& ports) : guard_(guard), ports_(ports) {
  serial_.setBaudRate(57600);
  serial_.setDataBits(QSerialPort::Data8);
  serial_.setParity(QSerialPort::NoParity);
  serial_.setStopBits(QSerialPort::OneStop);
  serial_.setFlowControl(QSerialPort::NoFlowControl);
  gap_.setSingleShot(true);
  gap_.setTimerType(Qt::PreciseTimer);
  gap_.setInterval(ReplyGate::kQuietGapMs);
  retry_.setInterval(kRetryMs);
  QObject::connect(&retry_, &QTimer::timeout, &listener_, [this] { PressOn(); });
  QObject::connect(&serial_, &QSerialPort::readyRead, &listener_, [this] { TakeArrivals(); });
  QObject::connect(&serial_, &QSerialPort::errorOccurred, &listener_,
                   [this](QSerialPort::SerialPortError error) { NoteError(error); });
  QObject::connect(&gap_, &QTimer::timeout, &listener_, [this] { LineWasQuiet(); });
}

QtSerialPort::~QtSerialPort() = default;

void QtSerialPort::SetCommPort(int port) {
  if (port < kLowestPort || port > kHighestPort) throw InvalidPropertyValue();
  port_ = port;
}

bool QtSerialPort::PortOpen() const {
  return serial_.isOpen() && !closePending_;
}

void QtSerialPort::SetPortOpen(bool open) {
  if (open == PortOpen() && !closePending_) return;
  Close();
  if (open) Open();
}

bool QtSerialPort::DeviceIsThere(int port) const {
  const std::string device = DeviceName(port);
  return !device.empty() && QFileInfo::exists(RealName(device));
}

void QtSerialPort::Open() {
  deviceGone_ = false;
  const std::string device = DeviceName(port_);
  if (device.empty()) throw NoDeviceBehind(port_);
  const QString node = RealName(device);
  serial_.setPortName(node);
  const std::string failure = "Port " + std::to_string(port_) + " cannot be opened: ";
  if (!serial_.open(QIODevice::ReadWrite)) {
    throw RuntimeError(kErrPort, failure + Reason(device, QFileInfo(node), serial_));
  }
  if (!Claim(serial_)) {
    serial_.close();
    throw RuntimeError(kErrPort, failure + InUse(device));
  }
  serial_.clear(QSerialPort::Input);  // bytes from before the opening are nobody's reply
}

void QtSerialPort::Close() {
  if (serial_.bytesToWrite() > 0) ++discards_;
  serial_.close();
  closePending_ = false;
  gap_.stop();
  retry_.stop();
  gate_.Clear();
  DiscardInput();
}

void QtSerialPort::Output(std::span<const std::uint8_t> bytes) {
  if (!PortOpen()) return;
  serial_.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
  serial_.flush();
  retries_ = 0;
  waiting_ = serial_.bytesToWrite();
  if (waiting_ > 0) retry_.start();
}

std::size_t QtSerialPort::OutBufferCount() const {
  return PortOpen() ? static_cast<std::size_t>(serial_.bytesToWrite()) : 0;
}

void QtSerialPort::DiscardInput() {
  received_.clear();
  overflowing_ = false;
}

std::uint8_t QtSerialPort::Input() {
  if (received_.empty()) throw SubscriptOutOfRange();
  const std::uint8_t byte = received_.front();
  received_.pop_front();
  overflowing_ = false;
  return byte;
}

void QtSerialPort::LookForInput() {
  int waiting = 0;
  if (PortOpen() && ioctl(serial_.handle(), FIONREAD, &waiting) == 0 && waiting > 0) {
    serial_.waitForReadyRead(0);
  }
}

void QtSerialPort::TakeArrivals() {
  const QByteArray bytes = serial_.readAll();
  if (gate_.Feed(
          {reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::size_t>(bytes.size())}))
    Deliver();
  if (gate_.Holding()) {
    gap_.start();
  } else {
    gap_.stop();
  }
}

void QtSerialPort::LineWasQuiet() {
  // After a stall of the program, the gap is over but the rest may have arrived: look before giving up on it.
  // TakeArrivals receives such bytes and starts the gap anew.
  if (serial_.waitForReadyRead(0) || gap_.isActive() || !PortOpen()) return;
  gate_.Quiet();
  Deliver();
}

void QtSerialPort::Deliver() {
  const std::vector<std::uint8_t> bytes = gate_.Take();
  const std::size_t fits = std::min(bytes.size(), kInBufferSize - received_.size());
  received_.insert(received_.end(), bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(fits));
  if (fits > 0) RaiseLater(kCommReceive);
  if (fits == bytes.size() || overflowing_) return;
  overflowing_ = true;
  RaiseLater(kCommOverflow);
}

void QtSerialPort::NoteError(QSerialPort::SerialPortError error) {
  // Other errors are harmless: none at all, raised at every opening; an operation that pseudo terminals lack;
  // a look for bytes that finds none. A write to a full line fails like one to a device that has gone.
  const bool deviceFailed = error == QSerialPort::WriteError || error == QSerialPort::ReadError ||
                            error == QSerialPort::ResourceError;
  if (!deviceFailed || !PortOpen() || !HungUp()) return;
  closePending_ = true;
  deviceGone_ = true;
  gap_.stop();
  // Not directly: QSerialPort is in the middle of the read or write that failed.
  QMetaObject::invokeMethod(
      &listener_, [this] { CloseLost(); }, Qt::QueuedConnection);
}

bool QtSerialPort::HungUp() const {
  pollfd line{.fd = serial_.handle(), .events = 0, .revents = 0};
  const bool gone = ::poll(&line, 1, 0) > 0 && (line.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
  return gone || !QFileInfo::exists(RealName(serial_.portName().toStdString()));
}

/// QSerialPort does not retry by itself after a write has found the line full.
void QtSerialPort::PressOn() {
  serial_.flush();
  const qint64 waiting = PortOpen() ? serial_.bytesToWrite() : 0;
  if (waiting == 0) {
    retry_.stop();
  } else if (std::exchange(waiting_, waiting) != waiting) {
    retries_ = 0;
  } else if (++retries_ >= kMostRetries) {
    retry_.stop();
    ++discards_;
    serial_.clear(QSerialPort::Output);
  }
}

void QtSerialPort::CloseLost() {
  if (!closePending_) return;  // meanwhile the tool has closed the port, or reopened it
  Close();
  Raise(kCommDeviceGone);
}

void QtSerialPort::RaiseLater(int event) {
  // Not directly: QSerialPort reports no more bytes until this report has returned, and a handler may show a
  // box.
  QMetaObject::invokeMethod(
      &listener_,
      [this, event] {
        const bool stillMatters = event != kCommReceive || !received_.empty();
        if (PortOpen() && stillMatters) Raise(event);
      },
      Qt::QueuedConnection);
}

void QtSerialPort::Raise(int event) {
  const int outer = event_;
  event_ = event;
  guard_.Run([this] { RaiseOnComm(); });
  event_ = outer;
}

}  // namespace marlinset
