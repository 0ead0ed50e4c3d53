// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/posix/descriptor.h"

namespace marlinset {

/// Who may read a file that was not there before; one that was keeps its mode and owner.
enum class NewFile {
  kShared,   ///< as the user's mask has it
  kPrivate,  ///< its owner alone
};

/// The one way in which files are written: the content grows in a file without a name, or with one that
/// nobody can foresee, in the folder of the target, and takes the target's place in one step when it is
/// whole and on the disk. Until then, and after any failure, the old file stands untouched. A symbolic link
/// goes on leading to its file. Failures: 61 when there is no room, else 75; also for a target that is no
/// regular file, or one that may not be written.
class FileWriter : public OutputFile {
 public:
  explicit FileWriter(const std::string& path, NewFile access = NewFile::kShared);
  /// With the mode and the owner of another file.
  FileWriter(const std::string& path, const struct stat& like);
  ~FileWriter() override;

  void Write(std::span<const std::uint8_t> bytes) override;
  void Commit() override;

 private:
  FileWriter(const std::string& path, NewFile access, std::optional<struct stat> like);
  void OpenFolder();
  void Create(mode_t mode);
  void TakeOver(const struct stat& like) const;
  /// Tries names until `make` has made something of one, which is the temporary name then.
  template <class Make>
  bool UnderANewName(Make make);
  void Place();

  std::string path_;       ///< as it was asked for, for messages
  std::string name_;       ///< of the target, in its folder
  std::string temporary_;  ///< empty while the growing file has no name
  Descriptor folder_;
  Descriptor file_;
};

/// A whole file at one stroke.
void WriteFile(const std::string& path, std::span<const std::uint8_t> content,
               NewFile access = NewFile::kShared);
void WriteFile(const std::string& path, std::string_view content, NewFile access = NewFile::kShared);

}  // namespace marlinset
