// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "platform/posix/descriptor.h"

namespace marlinset {

/// How a child ended.
struct ChildEnd {
  int status = 0;  ///< its exit status, if no signal ended it
  int signal = 0;  ///< the signal that ended it; 0 for none
};

/// A program whose output and errors come through pipes. Its input is empty. It has a process group of its
/// own, so that Ctrl-C at a terminal reaches it only through Send. If this program dies, however that
/// happens, the child gets SIGTERM.
class ChildProcess {
 public:
  /// Starts it: its path, and the words behind it. Throws std::system_error if that fails.
  explicit ChildProcess(const std::vector<std::string>& words);
  /// Ends a child that still runs, and waits for its end.
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// What it prints, from the readable end of a pipe each.
  const Descriptor& Output() const { return output_; }
  const Descriptor& Errors() const { return errors_; }
  /// Sends it a signal. Not after Wait.
  void Send(int signal) const;
  /// Waits for its end. Call this once.
  ChildEnd Wait();

 private:
  Descriptor output_;
  Descriptor errors_;
  pid_t process_ = -1;
};

}  // namespace marlinset
