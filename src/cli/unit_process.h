// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "cli/rack_run.h"
#include "platform/posix/child_process.h"

namespace marlinset {

/// A `send --json` to one unit in a process of its own.
class UnitProcess {
 public:
  /// Throws std::system_error if the process cannot be started.
  UnitProcess(std::size_t unit, const std::vector<std::string>& words);

  std::size_t Unit() const { return unit_; }  ///< its place in the rack
  /// Passes a signal on that asks it to end.
  void Interrupt(int signal);
  /// The streams to poll.
  enum Stream : std::size_t { kOutput, kErrors, kStreams };
  /// The descriptor of a stream; negative once it has ended.
  int DescriptorOf(std::size_t stream) const;
  /// Takes what a stream holds; waits if that is nothing.
  void Read(std::size_t stream);
  bool Ended() const { return streams_[kOutput].ended && streams_[kErrors].ended; }
  /// Waits for the end of a process whose streams have ended.
  UnitResult Result(const std::string& name);

 private:
  struct Reading {
    std::string text;
    bool ended = false;
  };

  std::size_t unit_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  int interrupt_ = 0;
  Reading streams_[kStreams];
  ChildProcess process_;
};

}  // namespace marlinset
