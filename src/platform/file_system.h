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

/// A file's new content while it grows. What the file held stays until Commit; without that it stays for
/// good, and nothing is left of the new content.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// Writes behind what was written before. Failure 61 when it does not fit, else 75.
  virtual void Write(std::span<const std::uint8_t> bytes) = 0;
  /// What was written takes the place of what the file held, in one step. The failures of Write.
  virtual void Commit() = 0;
};

/// What a path leads to.
struct FileIdentity {
  std::string place;  ///< the whole path at the end of all links; two hard links have two
  std::uint64_t device = 0;
  std::uint64_t inode = 0;  ///< 0 while nothing is there

  bool IsThere() const { return inode != 0; }
  bool IsSame(const FileIdentity& other) const {
    return place == other.place || (IsThere() && device == other.device && inode == other.inode);
  }
};

/// The computer's files, by paths in UTF-8.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  /// A file stands there; a folder, a device or a pipe is none.
  virtual bool FileExists(const std::string& path) const = 0;
  /// Of a file or a folder, which need not be there.
  virtual FileIdentity Identify(const std::string& path) const = 0;
  /// Failure 53 when there is no such file, 75 when it can't be opened, is no file or is too large for one of
  /// ours.
  virtual std::unique_ptr<InputFile> OpenForReading(const std::string& path) = 0;
  /// The new content of a file, which need not be there yet. Failure 75 when nothing can be written there, 61
  /// when there is no room.
  virtual std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) = 0;
  /// Makes NAME.bak a copy of the file, whole or not at all; what it held before goes. Failure 61 or 75.
  virtual void Backup(const std::string& path) = 0;
  /// Failure 76 when there is no such folder.
  virtual void ChangeDirectory(const std::string& folder) = 0;
};

/// Position of the last separator of folders in `path`, npos without one. A backslash separates on every
/// system, since paths of other desks stand in settings; a slash where it is the system's own.
std::size_t LastSeparator(std::string_view path);

/// The part of a path behind its folders.
std::string FileNameOf(std::string_view path);

}  // namespace marlinset
