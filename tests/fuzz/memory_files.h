// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>

#include "base/runtime_error.h"
#include "platform/file_system.h"

namespace marlinset {

/// Files that live as long as this object, by their names without folders.
class MemoryFiles : public FileSystem {
 public:
  bool FileExists(const std::string& path) const override { return files_.contains(FileNameOf(path)); }
  FileIdentity Identify(const std::string& path) const override { return {FileNameOf(path)}; }
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) override {
    if (!FileExists(path)) throw RuntimeError(kErrFileNotFound, "File not found");
    return std::make_unique<Input>(files_[FileNameOf(path)]);
  }
  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) override {
    return std::make_unique<Output>(files_[FileNameOf(path)]);
  }
  void Backup(const std::string& path) override {
    files_[FileNameOf(path) + ".bak"] = OpenForReading(path)->ReadAll();
  }
  void ChangeDirectory(const std::string& /*folder*/) override {}

 private:
  using Bytes = std::vector<std::uint8_t>;

  class Input : public InputFile {
   public:
    explicit Input(const Bytes& bytes) : bytes_(bytes) {}
    std::size_t Length() const override { return bytes_.size(); }
    Bytes ReadAll() override { return bytes_; }

   private:
    const Bytes bytes_;
  };

  class Output : public OutputFile {
   public:
    explicit Output(Bytes& bytes) : bytes_(bytes) {}
    void Write(std::span<const std::uint8_t> bytes) override {
      content_.insert(content_.end(), bytes.begin(), bytes.end());
    }
    void Commit() override { bytes_ = content_; }

   private:
    Bytes& bytes_;
    Bytes content_;
  };

  std::map<std::string, Bytes> files_;
};

}  // namespace marlinset
