// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/file_writer.h"

#include <fcntl.h>
#include <signal.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <random>

#include "base/text.h"
#include "platform/posix/file_failure.h"
#include "platform/posix/file_place.h"

namespace marlinset {
namespace {

constexpr mode_t kPermissions = 07777;
constexpr int kGrowingFlags = O_WRONLY | O_CLOEXEC;

/// The status of what a path leads to behind links; nothing if nothing is there.
std::optional<struct stat> StatusOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) return status;
  if (errno != ENOENT) throw WriteFailure(path, errno);
  return std::nullopt;
}

/// Holds back signals that end the program, so that none arrives in between.
class SignalsHeld {
 public:
  SignalsHeld() {
    sigset_t all;
    sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~SignalsHeld() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

 private:
  sigset_t before_{};
};

std::string UnforeseenName() {
  std::random_device random;
  return ".marlinset-" + HexText(random()) + HexText(random());
}

}  // namespace

FileWriter::FileWriter(const std::string& path, NewFile access) : FileWriter(path, access, std::nullopt) {}

FileWriter::FileWriter(const std::string& path, const struct stat& like)
    : FileWriter(path, NewFile::kPrivate, like) {}

FileWriter::FileWriter(const std::string& path, NewFile access, std::optional<struct stat> like)
    : path_(path) {
  const auto present = StatusOf(path);
  if (present) {
    RequireRegular(path, *present);
    if (::access(path.c_str(), W_OK) != 0) throw WriteFailure(path, errno);
    if (!like) like = present;
  }
  OpenFolder();
  Create(!like && access == NewFile::kShared ? 0666 : 0600);
  if (like) TakeOver(*like);
}

FileWriter::~FileWriter() {
  if (!temporary_.empty()) ::unlinkat(folder_.Number(), temporary_.c_str(), 0);
}

void FileWriter::OpenFolder() {
  const std::filesystem::path target = BehindLinks(path_);
  name_ = target.filename().string();
  if (name_.empty()) throw FileRefused(path_, "The name of the file is missing.");
  const std::string folder = target.has_parent_path() ? target.parent_path().string() : ".";
  constexpr int kFolder = O_DIRECTORY | O_CLOEXEC;
  folder_ = Descriptor(::open(folder.c_str(), O_RDONLY | kFolder));
  // A folder may be writable but not readable.
  if (!folder_.IsOpen() && errno == EACCES) folder_ = Descriptor(::open(folder.c_str(), O_PATH | kFolder));
  if (!folder_.IsOpen()) throw WriteFailure(path_, errno);
}

template <class Make>
bool FileWriter::UnderANewName(Make make) {
  for (int attempts = 0; attempts < 100; ++attempts) {
    const std::string name = UnforeseenName();
    if (make(name.c_str())) {
      temporary_ = name;
      return true;
    }
    if (errno != EEXIST) return false;
  }
  return false;
}

/// A file without a name leaves nothing behind if the program is killed. Not every file system supports it.
void FileWriter::Create(mode_t mode) {
  if (::access("/proc/self/fd", X_OK) == 0) {
    file_ = Descriptor(::openat(folder_.Number(), ".", O_TMPFILE | kGrowingFlags, mode));
  }
  if (file_.IsOpen()) return;
  const auto create = [&](const char* name) {
    file_ = Descriptor(::openat(folder_.Number(), name, O_CREAT | O_EXCL | O_NOFOLLOW | kGrowingFlags, mode));
    return file_.IsOpen();
  };
  if (UnderANewName(create)) return;
  // The folder itself is there: it has been opened. /proc and its like answer so.
  if (errno == ENOENT) throw FileRefused(path_, "Its folder takes no new files.");
  throw WriteFailure(path_, errno);
}

/// Keeps owner and group only as far as permitted; that never makes the new file less private.
void FileWriter::TakeOver(const struct stat& like) const {
  mode_t mode = like.st_mode & kPermissions;
  const bool kept = ::fchown(file_.Number(), like.st_uid, like.st_gid) == 0 ||
                    ::fchown(file_.Number(), static_cast<uid_t>(-1), like.st_gid) == 0;
  if (!kept) mode &= ~static_cast<mode_t>(S_IRWXG | S_ISUID | S_ISGID);
  ::fchmod(file_.Number(), mode);
}

void FileWriter::Write(std::span<const std::uint8_t> bytes) {
  if (!WriteAll(file_.Number(), bytes)) throw WriteFailure(path_, errno);
}

void FileWriter::Commit() {
  if (::fsync(file_.Number()) != 0) throw WriteFailure(path_, errno);
  Place();
  // From here on the new name survives a power cut. Some file systems do not support this request.
  (void)::fsync(folder_.Number());
}

/// The content has a temporary name only until it gets the final one.
void FileWriter::Place() {
  const SignalsHeld untilDone;
  const std::string nameless = "/proc/self/fd/" + std::to_string(file_.Number());
  const auto name = [&](const char* made) {
    return ::linkat(AT_FDCWD, nameless.c_str(), folder_.Number(), made, AT_SYMLINK_FOLLOW) == 0;
  };
  if (temporary_.empty() && !UnderANewName(name)) throw WriteFailure(path_, errno);
  if (::renameat(folder_.Number(), temporary_.c_str(), folder_.Number(), name_.c_str()) != 0) {
    throw WriteFailure(path_, errno);
  }
  temporary_.clear();
}

void WriteFile(const std::string& path, std::span<const std::uint8_t> content, NewFile access) {
  FileWriter file(path, access);
  file.Write(content);
  file.Commit();
}

void WriteFile(const std::string& path, std::string_view content, NewFile access) {
  WriteFile(path, std::span(reinterpret_cast<const std::uint8_t*>(content.data()), content.size()), access);
}

}  // namespace marlinset
