// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/found_ports.h"

#include <QFile>
#include <QSerialPortInfo>

namespace marlinset {
namespace {

/// Kernels reserve nodes for built-in ports (ttyS0 to ttyS31) whether or not the hardware is there; a node
/// without hardware has the UART type 0. Adapters have no such type.
bool HasHardware(const QSerialPortInfo& port) {
  QFile uart("/sys/class/tty/" + port.portName() + "/type");
  return !uart.open(QIODevice::ReadOnly) || uart.readAll().trimmed() != "0";
}

}  // namespace

std::vector<std::string> FoundPorts() {
  std::vector<std::string> paths;
  for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
    if (HasHardware(port)) paths.push_back(port.systemLocation().toStdString());
  }
  return paths;
}

}  // namespace marlinset
