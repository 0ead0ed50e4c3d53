// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace marlinset {

class EventPump;

/// Lines of a script, from a file or from standard input as they arrive. While it waits for a line there, the
/// tool's events and timers run.
class LineInput {
 public:
  /// Empty file name: standard input. Throws std::runtime_error if the file can't be read: it is missing, not
  /// a regular file or larger than 64 MiB.
  LineInput(const std::string& file, EventPump& pump, bool pumpWhileWaiting);

  /// The next line without its end; of a line longer than kMostLine, enough to see that it is too long;
  /// nothing at the end of the input or the program. Throws std::runtime_error if the input can't be read.
  std::optional<std::string> Next();

 private:
  bool ReadMore();
  void AwaitInput() const;

  EventPump& pump_;
  bool pumpWhileWaiting_;
  std::optional<int> stream_;  ///< nothing: `text_` holds all of the file
  std::string text_;           ///< what was read last, and where the unused part begins
  std::size_t at_ = 0;
};

}  // namespace marlinset
