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

/// Who may read a new file; an existing one keeps its mode and owner.
enum class NewFile {
  kShared,   ///< as the user's umask says
  kPrivate,  ///< its owner only
};

/// The only way in which the tool writes files: the content grows in a file without a name, or with an
/// unpredictable one, in the target's folder, and replaces the target in one step when it is complete and on
/// the disk. Until then, and after any failure, the old file stays untouched. A symbolic link keeps leading
/// to its file. Throws kErrDiskFull if there is no room, otherwise kErrFileAccess, also if the target is not
/// a regular file or may not be written.
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
  /// Tries names until `make` succeeds with one, which becomes the temporary name.
  template <class Make>
  bool UnderANewName(Make make);
  void Place();

  std::string path_;       ///< as requested, for messages
  std::string name_;       ///< the target's, in its folder
  std::string temporary_;  ///< empty while the growing file has no name
  Descriptor folder_;
  Descriptor file_;
};

/// Writes a complete file at once.
void WriteFile(const std::string& path, std::span<const std::uint8_t> content,
               NewFile access = NewFile::kShared);
void WriteFile(const std::string& path, std::string_view content, NewFile access = NewFile::kShared);

}  // namespace marlinset
