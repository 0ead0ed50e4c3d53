// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "platform/posix/local_files.h"

namespace marlinset {

/// The computer's files with faults on demand. Changes of the folder are recorded, not made: the folder
/// belongs to the whole test program.
class TestFiles : public FileSystem {
 public:
  std::vector<std::string> folders;  ///< every ChangeDirectory that went well
  bool refuseFolders = false;        ///< ChangeDirectory fails
  bool refuseBackups = false;        ///< a folder that takes no new file
  bool refuseReading = false;        ///< files open but do not give their bytes
  std::optional<std::size_t> room;   ///< bytes that still fit on the disk

  bool FileExists(const std::string& path) const override { return local_.FileExists(path); }
  FileIdentity Identify(const std::string& path) const override { return local_.Identify(path); }
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) override {
    auto file = local_.OpenForReading(path);
    if (refuseReading) return std::make_unique<DeafFile>(file->Length());
    return file;
  }
  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) override {
    auto file = local_.OpenForWriting(path);
    if (room) return std::make_unique<FullFile>(std::move(file), *this);
    return file;
  }
  void Backup(const std::string& path) override {
    if (refuseBackups) throw RuntimeError(kErrFileAccess, "Path/File access error");
    local_.Backup(path);
  }
  void ChangeDirectory(const std::string& folder) override {
    if (refuseFolders) throw RuntimeError(kErrPathNotFound, "Path not found");
    folders.push_back(folder);
  }

 private:
  class DeafFile : public InputFile {
   public:
    explicit DeafFile(std::size_t length) : length_(length) {}
    std::size_t Length() const override { return length_; }
    std::vector<std::uint8_t> ReadAll() override { throw RuntimeError(kErrDevice, "Device I/O error"); }

   private:
    std::size_t length_;
  };

  class FullFile : public OutputFile {
   public:
    FullFile(std::unique_ptr<OutputFile> file, TestFiles& disk) : file_(std::move(file)), disk_(disk) {}
    void Write(std::span<const std::uint8_t> bytes) override {
      const auto written = bytes.first(std::min(bytes.size(), *disk_.room));
      *disk_.room -= written.size();
      file_->Write(written);
      if (written.size() < bytes.size()) throw RuntimeError(kErrDiskFull, "Disk full");
    }
    void Commit() override { file_->Commit(); }

   private:
    std::unique_ptr<OutputFile> file_;
    TestFiles& disk_;
  };

  LocalFiles local_;
};

}  // namespace marlinset
