// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/serial_device.h"

#include <poll.h>
#include <sys/file.h>

#include <QByteArray>
#include <QFileInfo>
#include <QString>
#include <cerrno>
#include <utility>

#include "base/runtime_error.h"

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

SerialDevice::SerialDevice() {
  serial_.setBaudRate(57600);
  serial_.setDataBits(QSerialPort::Data8);
  serial_.setParity(QSerialPort::NoParity);
  serial_.setStopBits(QSerialPort::OneStop);
  serial_.setFlowControl(QSerialPort::NoFlowControl);
  retry_.setInterval(kRetryMs);
  QObject::connect(&retry_, &QTimer::timeout, &listener_, [this] { PressOn(); });
  QObject::connect(&serial_, &QSerialPort::readyRead, &listener_, [this] {
    const QByteArray bytes = serial_.readAll();
    onInput({reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::size_t>(bytes.size())});
  });
  QObject::connect(&serial_, &QSerialPort::errorOccurred, &listener_,
                   [this](QSerialPort::SerialPortError error) { NoteError(error); });
}

void SerialDevice::Open(const std::string& name) {
  const QString node = RealName(name);
  serial_.setPortName(node);
  if (!serial_.open(QIODevice::ReadWrite))
    throw RuntimeError(kErrPort, Reason(name, QFileInfo(node), serial_));
  if (!Claim(serial_)) {
    serial_.close();
    throw RuntimeError(kErrPort, InUse(name));
  }
  serial_.clear(QSerialPort::Input);  // bytes from before the opening are nobody's reply
}

void SerialDevice::Close() {
  if (serial_.bytesToWrite() > 0) ++discards_;
  serial_.close();
  retry_.stop();
}

void SerialDevice::Write(std::span<const std::uint8_t> bytes) {
  serial_.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
  serial_.flush();
  retries_ = 0;
  waiting_ = serial_.bytesToWrite();
  if (waiting_ > 0) retry_.start();
}

std::size_t SerialDevice::BytesToWrite() const {
  return static_cast<std::size_t>(serial_.bytesToWrite());
}

bool SerialDevice::HoldsInput() const {
  return SystemHoldsInput(serial_.handle());
}

bool SerialDevice::TakeInput() {
  return serial_.waitForReadyRead(0);
}

void SerialDevice::NoteError(QSerialPort::SerialPortError error) {
  // Other errors are harmless: none at all, raised at every opening; an operation that pseudo terminals lack;
  // a look for bytes that finds none. A write to a full line fails like one to a device that has gone.
  const bool deviceFailed = error == QSerialPort::WriteError || error == QSerialPort::ReadError ||
                            error == QSerialPort::ResourceError;
  if (deviceFailed && IsOpen() && HungUp()) onLost();
}

bool SerialDevice::HungUp() const {
  pollfd line{.fd = serial_.handle(), .events = 0, .revents = 0};
  const bool gone = ::poll(&line, 1, 0) > 0 && (line.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
  return gone || !QFileInfo::exists(RealName(serial_.portName().toStdString()));
}

/// QSerialPort does not retry by itself after a write has found the line full.
void SerialDevice::PressOn() {
  serial_.flush();
  const qint64 waiting = IsOpen() ? serial_.bytesToWrite() : 0;
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

}  // namespace marlinset
