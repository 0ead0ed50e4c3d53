// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>

#include "platform/file_system.h"

namespace marlinset {

/// What each file held when this run last read or wrote it, and which file is open. A file is identified by
/// where its name leads: other spellings, symbolic links and hard links count as the same file. A name that
/// has become a link to another file is that other file.
class KnownFiles {
 public:
  explicit KnownFiles(FileSystem& files) : files_(files) {}

  /// This run has just read or written the file; no content means that its bytes could not be read.
  void Note(const std::string& name, std::optional<std::span<const std::uint8_t>> content);
  bool Knows(const std::string& name) const { return Find(name).has_value(); }
  /// Whether the file still holds what it held then.
  bool IsAsItWas(const std::string& name) const;
  /// Whether the file now holds what it held when it had this mark.
  bool Holds(const std::string& name, const std::string& mark) const { return MarkNow(name) == mark; }

  /// Makes this the window's open file, whether or not it exists yet.
  void Open(const std::string& name);
  bool IsOpen(const std::string& name) const;
  /// Whether the name is in another folder than the open file's, if this run has read or written that file.
  /// False for a folder that does not exist: nothing can be written there.
  bool IsElsewhere(const std::string& name) const;
  /// Where the name leads if it is a symbolic link itself, otherwise empty.
  std::string BehindLink(const std::string& name) const;

  /// The open file, and what it held when this run last read or wrote it, if it did.
  struct OpenFile {
    std::string place;
    std::string folder;
    std::optional<std::string> mark;
  };
  OpenFile Opened() const;
  /// Makes a file the open one again, with what it held when it was. Returns whether this run has neither
  /// read nor written it since.
  bool TakeOpened(const OpenFile& file);

  /// What a file held then, as a line of text for a later run. A file that this run has neither read nor
  /// written gets a line, too.
  std::string Mark(const std::string& name) const;
  /// Takes such a line from an earlier run. An empty line says nothing; then the file counts as it is now.
  void TakeMark(const std::string& name, const std::string& mark);

 private:
  std::string MarkNow(const std::string& name) const;
  bool IsStill(const std::string& place, const FileIdentity& file) const;
  std::optional<std::string> Find(const std::string& name) const;

  FileSystem& files_;
  std::map<std::string, std::string> marks_;  ///< by place
  std::string openPlace_;
  std::string openFolder_;
};

}  // namespace marlinset
