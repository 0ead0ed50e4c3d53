// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace marlinset {

class EventPump;

/// Lines of a script from a file or from standard input. While a line is awaited on standard input the tool's
/// events and timers run.
class LineInput {
 public:
  /// Empty file name: standard input. Throws std::runtime_error when the file can't be opened.
  LineInput(const std::string& file, EventPump& pump, bool pumpWhileWaiting);
  ~LineInput();
  LineInput(const LineInput&) = delete;
  LineInput& operator=(const LineInput&) = delete;

  /// The next line without its end; nothing at the end of the input or of the program. Throws
  /// std::runtime_error when the input can't be read, as a folder.
  std::optional<std::string> Next();

 private:
  bool ReadMore();
  void AwaitInput();

  EventPump& pump_;
  bool pumpWhileWaiting_;
  int descriptor_;
  bool atEnd_ = false;
  std::string buffer_;
};

}  // namespace marlinset
