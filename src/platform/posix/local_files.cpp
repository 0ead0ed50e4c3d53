// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/local_files.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/posix/file_failure.h"
#include "platform/posix/file_place.h"
#include "platform/posix/file_reader.h"
#include "platform/posix/file_writer.h"

namespace marlinset {

bool LocalFiles::FileExists(const std::string& path) const {
  std::error_code unknown;
  return std::filesystem::is_regular_file(path, unknown);
}

FileIdentity LocalFiles::Identify(const std::string& path) const {
  FileIdentity identity{RealPath(path)};
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) {
    identity.device = status.st_dev;
    identity.inode = status.st_ino;
  }
  return identity;
}

std::unique_ptr<InputFile> LocalFiles::OpenForReading(const std::string& path) {
  return std::make_unique<FileReader>(path);
}

std::unique_ptr<OutputFile> LocalFiles::OpenForWriting(const std::string& path) {
  return std::make_unique<FileWriter>(path);
}

void LocalFiles::Backup(const std::string& path) {
  FileReader file(path);
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) throw ReadFailure(path, errno);
  const std::string backup = BackupOf(path);
  std::error_code unknown;
  // The backup replaces a link, because the file behind it belongs to somebody else.
  if (std::filesystem::is_symlink(backup, unknown)) std::filesystem::remove(backup, unknown);
  FileWriter kept(backup, status);
  kept.Write(file.ReadAll());
  kept.Commit();
}

void LocalFiles::ChangeDirectory(const std::string& folder) {
  std::error_code failure;
  std::filesystem::current_path(folder, failure);
  if (failure) throw RuntimeError(kErrPathNotFound, "Path not found");
}

}  // namespace marlinset
