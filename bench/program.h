// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace marlinset {

/// Path of a program of the same build.
std::string ProgramPath(const char* name);

/// A program of the same build as a process of its own, with nothing to read and nowhere to write. Whatever
/// goes wrong is a std::runtime_error that names it.
class Program {
 public:
  Program(const char* name, const std::vector<std::string>& arguments);
  /// Kills it if it still runs.
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Waits until it has ended with status 0.
  void Finish();
  /// Kills it; returns the most memory that it held, in KiB, pages that it shares with others included.
  long KillForPeakKib();

 private:
  std::string name_;
  pid_t child_ = 0;
};

}  // namespace marlinset
