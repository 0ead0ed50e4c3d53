// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/file_place.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <climits>
#include <filesystem>

#include "base/text.h"
#include "platform/content_hash.h"
#include "platform/posix/file_failure.h"

namespace marlinset {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // the kernel's limit

fs::path FolderOf(const fs::path& path) {
  return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

/// Follows one link; nothing if `path` is not a link.
std::optional<fs::path> NextLink(const fs::path& path) {
  std::error_code noLink;
  const fs::path target = fs::read_symlink(path, noLink);
  if (noLink) return std::nullopt;
  return FolderOf(path) / target;
}

bool IsNumber(const std::string& text) {
  constexpr std::size_t kMostDigits = 6;
  return !text.empty() && text.size() <= kMostDigits &&
         std::all_of(text.begin(), text.end(), [](unsigned char letter) { return std::isdigit(letter); });
}

/// "~" and eight hexadecimal digits that depend on the name.
std::string MarkOf(std::string_view name) {
  const std::uint64_t hash = ContentHash({reinterpret_cast<const std::uint8_t*>(name.data()), name.size()});
  std::string mark = "~";
  for (unsigned shift = 0; shift < 32; shift += 8) mark += HexByte(static_cast<std::uint8_t>(hash >> shift));
  return mark;
}

}  // namespace

std::string BehindLinks(const std::string& path) {
  fs::path place = path;
  for (int links = 0; const auto next = NextLink(place); ++links) {
    if (links == kMostLinks) throw WriteFailure(path, ELOOP);
    place = *next;
  }
  return place.string();
}

std::string RealPath(const std::string& path) {
  std::error_code unknown;
  fs::path end = path;
  // Follows a link that leads nowhere yet, too.
  for (int links = 0; links < kMostLinks; ++links) {
    const auto next = NextLink(end);
    if (!next) break;
    end = *next;
  }
  const fs::path whole = fs::weakly_canonical(fs::absolute(end, unknown), unknown).lexically_normal();
  return (whole.has_filename() || !whole.has_relative_path() ? whole : whole.parent_path()).string();
}

std::optional<int> OwnStream(const std::string& path) {
  std::error_code unknown;
  const fs::path streams = fs::canonical("/proc/self/fd", unknown);
  if (unknown) return std::nullopt;
  std::optional<fs::path> place = path;
  for (int links = 0; place && links <= kMostLinks; ++links, place = NextLink(*place)) {
    const std::string name = place->filename().string();
    if (IsNumber(name) && fs::canonical(FolderOf(*place), unknown) == streams) return std::stoi(name);
  }
  return std::nullopt;
}

bool IsNullDevice(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISCHR(status.st_mode) && status.st_rdev == makedev(1, 3);
}

std::string BackupOf(const std::string& path) {
  constexpr std::string_view kExtension = ".bak";
  const fs::path place = path;
  const long most = ::pathconf(FolderOf(place).c_str(), _PC_NAME_MAX);
  const std::size_t room = (most > 0 ? static_cast<std::size_t>(most) : NAME_MAX) - kExtension.size();
  std::string name = place.filename().string();
  if (name.size() > room) {
    const std::string mark = MarkOf(name);
    std::size_t end = room - std::min(room, mark.size());
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) --end;  // whole letters
    name.replace(end, std::string::npos, mark);
  }
  return (place.parent_path() / name).string() + std::string(kExtension);
}

}  // namespace marlinset
