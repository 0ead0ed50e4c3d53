// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace marlinset {

/// A file open for reading. Goes with its owner.
class InputFile {
 public:
  virtual ~InputFile() = default;
  /// In bytes, as it was at the opening.
  virtual std::size_t Length() const = 0;
  /// All bytes from the beginning. Failure 57 when the device does not give them, 7 when memory does not hold
  /// them.
  virtual std::vector<std::uint8_t> ReadAll() = 0;
};

/// A file open for writing. Goes with its owner; what was written by then stays.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// Writes behind what was written before and hands it to the system at once. Failure 61 when it does not
  /// fit or the device does not take it.
  virtual void Write(std::span<const std::uint8_t> bytes) = 0;
};

/// The computer's files, by paths in UTF-8.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  /// A file stands there; a folder is none.
  virtual bool FileExists(const std::string& path) const = 0;
  /// Failure 53 when there is no such file, 75 when it can't be opened or is no file, 6 when it is longer
  /// than 2147483647 bytes.
  virtual std::unique_ptr<InputFile> OpenForReading(const std::string& path) = 0;
  /// Opens a file to be overwritten from its first byte on; bytes beyond what is written stay. Makes the file
  /// when there is none. Failure 75 when that can't be done.
  virtual std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) = 0;
  /// Makes `to` a copy of `from`, whole or not at all; what `to` held before goes. Failure 75.
  virtual void Copy(const std::string& from, const std::string& to) = 0;
  /// Failure 76 when there is no such folder.
  virtual void ChangeDirectory(const std::string& folder) = 0;
};

/// Position of the last separator of folders in `path`, npos without one. A backslash separates on every
/// system, since paths of other desks stand in settings; a slash where it is the system's own.
std::size_t LastSeparator(std::string_view path);

/// The part of a path behind its folders.
std::string FileNameOf(std::string_view path);

}  // namespace marlinset
