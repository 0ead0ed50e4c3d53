// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/file_engine.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

namespace marlinset {

std::unique_ptr<Database> FileEngine::OpenDatabase(const std::string& path) {
  return (IsAccessFile(path) ? access_ : sqlite_).OpenDatabase(path);
}

bool IsAccessFile(const std::string& path) {
  using namespace std::string_view_literals;
  constexpr std::string_view kSignature = "\0\1\0\0Standard Jet DB\0"sv;
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return false;
  std::array<char, kSignature.size()> start{};
  std::ifstream in(path, std::ios::binary);
  in.read(start.data(), start.size());
  return in && std::string_view(start.data(), start.size()) == kSignature;
}

}  // namespace marlinset
