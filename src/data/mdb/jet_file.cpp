// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/mdb/jet_file.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <system_error>

#include "data/file_engine.h"
#include "data/row_set.h"

namespace marlinset {
namespace {

constexpr int kVersionOffset = 0x14;
constexpr int kAccess2000 = 1;  // 0 is Access 97, whose pages have a different layout

int VersionOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  in.seekg(kVersionOffset);
  return in.get();
}

/// The user's environment variables could make the library return texts in code pages other than UTF-8.
void KeepTextsInUtf8() {
  for (const char* variable : {"MDBICONV", "MDB_JET3_CHARSET"}) {
    if (std::getenv(variable) != nullptr) unsetenv(variable);
  }
}

}  // namespace

JetFile::JetFile(const std::string& path) : path_(path) {
  std::error_code unknown;
  const auto size = std::filesystem::file_size(path, unknown);
  Check(!unknown && IsAccessFile(path), "the file is not a reference database");
  Check(VersionOf(path) == kAccess2000, "the file is not of Access 2000 to 2003");
  pages_ = static_cast<std::uint32_t>(
      std::min<std::uintmax_t>(size / kPageSize, std::numeric_limits<std::int32_t>::max()));
  KeepTextsInUtf8();
  // Given a path without a folder, the library also searches other places for it.
  const std::string absolute = std::filesystem::absolute(path, unknown).string();
  handle_.reset(mdb_open(absolute.c_str(), MDB_NOFLAGS));
  Check(handle_ != nullptr && handle_->fmt->pg_size == kPageSize, "the file cannot be read");
}

void JetFile::CheckPage(std::uint32_t page) const {
  Check(page > 0 && page < pages_, "a page is beyond the end of the file");
}

void JetFile::ReadPage(std::uint32_t page) {
  CheckPage(page);
  Check(mdb_read_pg(Handle(), page) == kPageSize, "a page cannot be read");
}

int JetFile::Byte(int offset) const {
  Check(offset >= 0 && offset < kPageSize, "a value is outside its page");
  return Page()[static_cast<std::size_t>(offset)];
}

int JetFile::Int16(int offset) const {
  return Byte(offset) | Byte(offset + 1) << 8;
}

std::uint32_t JetFile::Int32(int offset) const {
  return static_cast<std::uint32_t>(Int16(offset)) | static_cast<std::uint32_t>(Int16(offset + 2)) << 16;
}

void JetFile::Check(bool holds, std::string_view reason) const {
  if (!holds) throw BadDatabase(path_, reason);
}

}  // namespace marlinset
