// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <string>

namespace marlinset {

/// The virtual unit as a process of its own, which is how a real one meets the tool: over a device, and on a
/// clock that it does not share. Stops when it goes out of scope.
class VirtualUnit {
 public:
  /// `options` as of marlinset-unit; throws std::runtime_error when it does not come up. A unit that counts
  /// the bytes on its line takes a few microseconds longer for each answer.
  explicit VirtualUnit(const QStringList& options = {}, bool countBytes = false);
  ~VirtualUnit();

  /// The pseudo terminal that the tool opens.
  std::string Device() const;
  /// Bytes that went over the line since the last call, both directions together; the unit has to count them.
  std::size_t TakeLineBytes();

 private:
  QString TraceFile() const { return folder_.filePath("trace"); }

  QTemporaryDir folder_;
  QProcess process_;
  qint64 traceRead_ = 0;
};

}  // namespace marlinset
