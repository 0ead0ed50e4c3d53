// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/file_system.h"

namespace marlinset {

/// The files of this computer.
class LocalFiles : public FileSystem {
 public:
  bool FileExists(const std::string& path) const override;
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) override;
  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) override;
  void Copy(const std::string& from, const std::string& to) override;
  void ChangeDirectory(const std::string& folder) override;
};

}  // namespace marlinset
