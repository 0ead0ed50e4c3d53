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

/// A file open for reading, closed with its owner.
class InputFile {
 public:
  virtual ~InputFile() = default;
  /// In bytes, as it was when the file was opened.
  virtual std::size_t Length() const = 0;
  /// All bytes from the beginning. Throws kErrDevice if the device does not deliver them, kErrMemory if
  /// memory cannot hold them.
  virtual std::vector<std::uint8_t> ReadAll() = 0;
};

/// A file's new content while it grows. The old content stays until Commit; without Commit it stays for good,
/// and the new content leaves no trace.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// Appends to the new content. Throws kErrDiskFull if it does not fit, otherwise kErrFileAccess.
  virtual void Write(std::span<const std::uint8_t> bytes) = 0;
  /// Replaces the file's old content by the new one in one step. Throws as Write does.
  virtual void Commit() = 0;
};

/// What a path leads to.
struct FileIdentity {
  std::string place;  ///< the full path at the end of all links; differs between hard links
  std::uint64_t device = 0;
  std::uint64_t inode = 0;  ///< 0 if nothing is there

  bool IsThere() const { return inode != 0; }
  bool IsSame(const FileIdentity& other) const {
    return place == other.place || (IsThere() && device == other.device && inode == other.inode);
  }
};

/// The computer's files, by paths in UTF-8.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  /// Whether a file is there; a folder, a device or a pipe is not a file.
  virtual bool FileExists(const std::string& path) const = 0;
  /// Of a file or a folder, which need not exist.
  virtual FileIdentity Identify(const std::string& path) const = 0;
  /// Throws kErrFileNotFound if there is no such file, kErrFileAccess if it can't be opened, is not a file or
  /// is larger than any file of the tool.
  virtual std::unique_ptr<InputFile> OpenForReading(const std::string& path) = 0;
  /// The new content of a file, which need not exist yet. Throws kErrFileAccess if nothing can be written
  /// there, kErrDiskFull if there is no room.
  virtual std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) = 0;
  /// Replaces NAME.bak by a copy of the file, completely or not at all. Throws as OpenForWriting does.
  virtual void Backup(const std::string& path) = 0;
  /// Throws kErrPathNotFound if there is no such folder.
  virtual void ChangeDirectory(const std::string& folder) = 0;
};

/// The absolute form of a path, from the current folder: file dialogs take the tool to other folders. A path
/// that has none stays as it is; opening it reports what is wrong.
std::string AbsolutePath(const std::string& path);

/// Position of the last folder separator in `path`, npos without one. A backslash separates on every system,
/// because settings hold paths of other computers; a slash only if it is the system's own.
std::size_t LastSeparator(std::string_view path);

/// The part of a path after its folders.
std::string FileNameOf(std::string_view path);
/// The folders before it, with the last separator; empty if there are none.
std::string FolderOfPath(const std::string& path);

}  // namespace marlinset
