// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace marlinset {

class EventPump;

/// Lines of a script, from a file or as they come through standard input. While a line is awaited there the
/// tool's events and timers run.
class LineInput {
 public:
  /// Empty file name: standard input. Throws std::runtime_error for a file that can't be read: one that is
  /// not there, no regular file or larger than 64 MiB.
  LineInput(const std::string& file, EventPump& pump, bool pumpWhileWaiting);

  /// The next line without its end, of one beyond kMostLine enough to see that it is; nothing at the end of
  /// the input or of the program. Throws std::runtime_error when the input can't be read.
  std::optional<std::string> Next();

 private:
  bool ReadMore();
  void AwaitInput() const;

  EventPump& pump_;
  bool pumpWhileWaiting_;
  std::optional<int> stream_;  ///< nothing: the whole file is in `text_`
  std::string text_;           ///< what was read last, and from where on it is not used up
  std::size_t at_ = 0;
};

}  // namespace marlinset
