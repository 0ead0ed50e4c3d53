// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/file_system.h"

namespace marlinset {

/// The files of this computer: read by FileReader, written by FileWriter.
class LocalFiles : public FileSystem {
 public:
  bool FileExists(const std::string& path) const override;
  FileIdentity Identify(const std::string& path) const override;
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) override;
  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) override;
  void Backup(const std::string& path) override;
  void ChangeDirectory(const std::string& folder) override;
};

}  // namespace marlinset
