// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace marlinset {

/// The bytes of a file, empty if there is none.
inline std::string BytesOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// A fresh folder, removed with its content at the end of the test.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "marlinset-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  /// Without a trailing separator.
  const std::string& Path() const { return path_; }
  /// Full path of a file in the folder, whether or not there is one.
  std::string File(std::string_view name) const { return (std::filesystem::path(path_) / name).string(); }
  /// Writes a file; returns its full path.
  std::string Write(std::string_view name, std::string_view content) const {
    std::ofstream out(File(name), std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!out.flush()) throw std::runtime_error("cannot write " + File(name));
    return File(name);
  }
  std::string Read(std::string_view name) const { return BytesOf(File(name)); }

 private:
  std::string path_;
};

}  // namespace marlinset
