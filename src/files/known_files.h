// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>

#include "platform/file_system.h"

namespace marlinset {

/// What files held when this run read or wrote them last, and which of them is open. A file is known by
/// where its name leads, whatever the name: other spellings, symbolic links and hard links count as it. A
/// name that has become a link to another file is that other file.
class KnownFiles {
 public:
  explicit KnownFiles(FileSystem& files) : files_(files) {}

  /// This run has just read or written it; without content it did not give its bytes.
  void Note(const std::string& name, std::optional<std::span<const std::uint8_t>> content);
  bool Knows(const std::string& name) const { return Find(name).has_value(); }
  /// It holds what it held then.
  bool IsAsItWas(const std::string& name) const;

  /// The window's file from now on, whether or not it is there yet.
  void Open(const std::string& name);
  bool IsOpen(const std::string& name) const;
  /// Another folder than that of the open file, if this run has read or written that one. A folder that does
  /// not exist is none: nothing can be written there.
  bool IsElsewhere(const std::string& name) const;
  /// Where the name leads if it is a symbolic link itself, else empty.
  std::string BehindLink(const std::string& name) const;

  /// What a file held then, as a line of text for a later run. One that this run has neither read nor written
  /// has a line, too.
  std::string Mark(const std::string& name) const;
  /// What an earlier run has seen of it. An empty line tells nothing, the file counts as it is now.
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
