// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/virtual_unit.h"

#include <QFile>
#include <stdexcept>

#include "bench/program.h"

namespace marlinset {
namespace {

constexpr int kStartMs = 10000;

}  // namespace

VirtualUnit::VirtualUnit(const QStringList& options, bool countBytes) {
  QStringList arguments{"--link", folder_.filePath("unit")};
  if (countBytes) arguments << "--trace" << TraceFile();
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process_.start(QString::fromStdString(ProgramPath("marlinset-unit")), arguments + options);
  if (!process_.waitForReadyRead(kStartMs) || !process_.readLine().startsWith("ready "))
    throw std::runtime_error("marlinset-unit does not start");
}

VirtualUnit::~VirtualUnit() {
  process_.closeWriteChannel();
  process_.waitForFinished();
}

std::string VirtualUnit::Device() const {
  return folder_.filePath("unit").toStdString();
}

std::size_t VirtualUnit::TakeLineBytes() {
  QFile trace(TraceFile());
  if (!trace.open(QIODevice::ReadOnly) || !trace.seek(traceRead_)) throw std::runtime_error("no trace");
  std::size_t bytes = 0;
  // "12.345 rx 02030f0035b9"
  while (!trace.atEnd()) {
    const QByteArray line = trace.readLine().trimmed();
    bytes += static_cast<std::size_t>(line.size() - line.lastIndexOf(' ') - 1) / 2;
  }
  traceRead_ = trace.pos();
  return bytes;
}

}  // namespace marlinset
