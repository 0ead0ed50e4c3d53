// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/local_files.h"

#include <filesystem>
#include <fstream>
#include <limits>
#include <new>
#include <system_error>

#include "platform/runtime_error.h"

namespace marlinset {
namespace {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& path) {
  return {std::u8string(path.begin(), path.end())};
}

RuntimeError NoAccess() {
  return {kErrFileAccess, "Path/File access error"};
}

class LocalInput : public InputFile {
 public:
  explicit LocalInput(const fs::path& path) : stream_(path, std::ios::binary | std::ios::ate) {
    const auto end = stream_ ? static_cast<std::streamoff>(stream_.tellg()) : -1;
    if (end < 0) throw NoAccess();
    if (end > std::numeric_limits<std::int32_t>::max()) throw Overflow();
    length_ = static_cast<std::size_t>(end);
  }
  std::size_t Length() const override { return length_; }
  std::vector<std::uint8_t> ReadAll() override {
    std::vector<std::uint8_t> bytes = Room();
    stream_.seekg(0);
    // The stream counts in characters, a file of this tool in bytes.
    stream_.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!stream_) throw RuntimeError(kErrDevice, "Device I/O error");
    return bytes;
  }

 private:
  std::vector<std::uint8_t> Room() const {
    try {
      return std::vector<std::uint8_t>(length_);
    } catch (const std::bad_alloc&) {
      throw RuntimeError(kErrMemory, "Out of memory");
    }
  }
  std::ifstream stream_;
  std::size_t length_ = 0;
};

class LocalOutput : public OutputFile {
 public:
  /// A file that is there is opened for reading too: for writing alone it would be emptied.
  LocalOutput(const fs::path& path, bool isThere)
      : stream_(path, isThere ? std::ios::binary | std::ios::in | std::ios::out
                              : std::ios::binary | std::ios::out) {
    if (!stream_) throw NoAccess();
  }
  void Write(std::span<const std::uint8_t> bytes) override {
    stream_.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!stream_.flush()) throw RuntimeError(kErrDiskFull, "Disk full");
  }

 private:
  std::fstream stream_;
};

/// Pipes and sockets are no files: opening one waits for whoever is at its other end, perhaps for ever.
bool MayBlock(const fs::file_status& status) {
  return fs::is_fifo(status) || fs::is_socket(status);
}

}  // namespace

bool LocalFiles::FileExists(const std::string& path) const {
  std::error_code unknown;
  const fs::file_status status = fs::status(PathOf(path), unknown);
  return fs::exists(status) && !fs::is_directory(status) && !MayBlock(status);
}

std::unique_ptr<InputFile> LocalFiles::OpenForReading(const std::string& path) {
  std::error_code unknown;
  const fs::file_status status = fs::status(PathOf(path), unknown);
  if (status.type() == fs::file_type::not_found) throw RuntimeError(kErrFileNotFound, "File not found");
  if (fs::is_directory(status) || MayBlock(status)) throw NoAccess();
  return std::make_unique<LocalInput>(PathOf(path));
}

std::unique_ptr<OutputFile> LocalFiles::OpenForWriting(const std::string& path) {
  std::error_code unknown;
  const fs::file_status status = fs::status(PathOf(path), unknown);
  if (MayBlock(status)) throw NoAccess();
  const bool isThere = status.type() != fs::file_type::not_found;
  return std::make_unique<LocalOutput>(PathOf(path), isThere);
}

void LocalFiles::Copy(const std::string& from, const std::string& to) {
  const fs::path whole = PathOf(to);
  const fs::path growing = PathOf(to + ".new");
  std::error_code failure;
  fs::copy_file(PathOf(from), growing, fs::copy_options::overwrite_existing, failure);
  if (!failure) fs::rename(growing, whole, failure);
  if (!failure) return;
  std::error_code ignored;
  fs::remove(growing, ignored);
  throw NoAccess();
}

void LocalFiles::ChangeDirectory(const std::string& folder) {
  std::error_code failure;
  fs::current_path(PathOf(folder), failure);
  if (failure) throw RuntimeError(kErrPathNotFound, "Path not found");
}

}  // namespace marlinset
