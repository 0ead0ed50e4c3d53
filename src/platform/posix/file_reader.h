// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/file_system.h"
#include "platform/posix/descriptor.h"

namespace marlinset {

/// No setup, settings file, script or text of the tool comes near this size; a larger file is something else.
inline constexpr std::size_t kMostFileBytes = std::size_t{64} * 1024 * 1024;

/// A regular file of at most kMostFileBytes. For anything else it throws kErrFileNotFound or kErrFileAccess
/// and does not open it: a pipe would wait for its other end, and a device may act.
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

/// All of such a file as text.
std::string ReadText(const std::string& path);
/// Everything from an open stream of this program up to the same limit, as text; waits for its end. `path`
/// names it in failures.
std::string ReadStream(int stream, const std::string& path);

}  // namespace marlinset
