// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/settings_file.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/posix/descriptor.h"
#include "platform/posix/file_place.h"
#include "platform/posix/file_reader.h"
#include "platform/posix/file_writer.h"
#include "platform/posix/settings_text.h"

namespace marlinset {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSection = "Window";

/// Keeps other tools out while one reads, changes and writes. Locks the folder, because the file itself is
/// replaced. Some file systems have no locks, and a lock that is never released belongs to somebody else.
class FolderLock {
 public:
  explicit FolderLock(const fs::path& folder)
      : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    constexpr int kAttempts = 50;
    constexpr std::chrono::milliseconds kPause{10};
    for (int i = 0; i < kAttempts && ::flock(folder_.Number(), LOCK_EX | LOCK_NB) != 0; ++i) {
      if (errno != EWOULDBLOCK) return;
      std::this_thread::sleep_for(kPause);
    }
  }

 private:
  Descriptor folder_;
};

/// Empty if there is no file.
std::string TextOf(const std::string& path) {
  try {
    return ReadText(path);
  } catch (const RuntimeError& failure) {
    if (failure.Number() == kErrFileNotFound) return {};
    throw;
  }
}

}  // namespace

SettingsFile::SettingsFile(const std::string& path) {
  if (IsNullDevice(path)) return;
  std::error_code unknown;
  const fs::path whole = fs::absolute(path, unknown);  // the program changes its folder
  path_ = unknown ? path : whole.string();
  values_ = ReadSettings(TextOf(path_), kSection);
}

std::string SettingsFile::GetSetting(std::string_view key, std::string_view defaultValue) const {
  const auto found = values_.find(LookUpKey(key));
  return found == values_.end() ? std::string(defaultValue) : found->second;
}

void SettingsFile::SaveSetting(std::string_view key, std::string_view value) {
  values_[LookUpKey(key)] = value;
  if (path_.empty()) return;
  try {
    Write(key, value);
  } catch (const RuntimeError& failure) {
    if (const auto tell = std::exchange(onNotWritten, nullptr)) tell(failure);
  }
}

void SettingsFile::Write(std::string_view key, std::string_view value) const {
  const fs::path folder = fs::path(BehindLinks(path_)).parent_path();
  std::error_code toldByWriter;
  fs::create_directories(folder, toldByWriter);
  const FolderLock lock(folder);
  const std::string before = TextOf(path_);
  const std::string after = WithSetting(before, kSection, key, value);
  if (after == before) return;
  WriteFile(path_, after, NewFile::kPrivate);
}

}  // namespace marlinset
