// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_system.h"

#include <filesystem>
#include <system_error>

namespace marlinset {

std::string AbsolutePath(const std::string& path) {
  if (path.empty()) return path;
  std::error_code unknown;
  const std::filesystem::path absolute = std::filesystem::absolute(path, unknown);
  return unknown ? path : absolute.string();
}

std::size_t LastSeparator(std::string_view path) {
  constexpr bool kSlashIsNative = std::filesystem::path::preferred_separator == '/';
  return path.find_last_of(kSlashIsNative ? "\\/" : "\\");
}

std::string FileNameOf(std::string_view path) {
  const auto separator = LastSeparator(path);
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string FolderOfPath(const std::string& path) {
  return path.substr(0, path.size() - FileNameOf(path).size());
}

}  // namespace marlinset
