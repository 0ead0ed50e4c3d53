// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/file_system.h"
#include "platform/posix/descriptor.h"

namespace marlinset {

/// No setup, store, script or text of ours comes near; what is larger is something else.
inline constexpr std::size_t kMostFileBytes = std::size_t{64} * 1024 * 1024;

/// A regular file of at most kMostFileBytes. Failure 53 or 75 for anything else, without opening it: a pipe
/// would wait for its other end, and a device may do something.
class FileReader : public InputFile {
 public:
  explicit FileReader(const std::string& path);
  std::size_t Length() const override { return length_; }
  std::vector<std::uint8_t> ReadAll() override;

 private:
  std::string path_;
  Descriptor file_;
  std::size_t length_ = 0;
};

/// All of such a file, as text.
std::string ReadText(const std::string& path);
/// All that comes through a stream of the program's own, at most as much, as text; waits for its end. `path`
/// names it in failures.
std::string ReadStream(int stream, const std::string& path);

}  // namespace marlinset
