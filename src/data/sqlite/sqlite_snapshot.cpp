// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/sqlite/sqlite_snapshot.h"

#include <sys/stat.h>

#include <array>
#include <chrono>
#include <fstream>
#include <string_view>
#include <system_error>

#include "base/text.h"
#include "data/row_set.h"

namespace marlinset {
namespace {

// How long a reader waits for a file that is being written.
constexpr int kBusyMilliseconds = 1000;
constexpr int kMostTries = 5;

/// How to open a file so that nobody notices that it is being read.
enum class Access {
  kLocked,     ///< as usual: creates nothing beside a file with a rollback journal
  kImmutable,  ///< a file in log mode whose log is missing: the usual way would create one
  kLog,        ///< a file with changes in its log: keeps their index in memory instead of beside it
};

std::uintmax_t SizeOf(const std::string& path) {
  std::error_code missing;
  const std::uintmax_t size = std::filesystem::file_size(path, missing);
  return missing ? 0 : size;
}

/// The log of a linked file is beside the file, not beside the link.
std::string FileBehind(const std::string& path, std::error_code& unknown) {
  return std::filesystem::canonical(path, unknown).string();
}

SqliteStamp StampOf(const std::string& path) {
  const std::string log = path + "-wal";
  std::error_code unknown;
  struct stat node {};
  ::stat(path.c_str(), &node);  // all zero if it has gone
  constexpr std::int64_t kNanoseconds = 1000000000;
  return {.file = path,
          .inode = node.st_ino,
          .changed = node.st_ctim.tv_sec * kNanoseconds + node.st_ctim.tv_nsec,
          .size = SizeOf(path),
          .logSize = SizeOf(log),
          .written = std::filesystem::last_write_time(path, unknown),
          .logWritten = std::filesystem::last_write_time(log, unknown)};
}

/// The first bytes of every SQLite file. Checked here because the library takes an empty file for an empty
/// database.
Access AccessTo(const std::string& path) {
  constexpr std::string_view kSignature("SQLite format 3\0", 16);
  constexpr std::size_t kReadVersion = 19;
  constexpr char kWithLog = 2;
  std::array<char, 20> start{};
  std::error_code ignored;
  std::ifstream in;
  // Opening a pipe would wait for its writer.
  if (std::filesystem::is_regular_file(path, ignored)) in.open(path, std::ios::binary);
  if (!in.is_open()) throw BadDatabase(path, "the file cannot be read");
  in.read(start.data(), start.size());
  if (!in || std::string_view(start.data(), kSignature.size()) != kSignature) {
    throw BadDatabase(path, "the file is not a reference database");
  }
  if (start[kReadVersion] != kWithLog) return Access::kLocked;
  return SizeOf(path + "-wal") > 0 ? Access::kLog : Access::kImmutable;
}

/// An absolute path in which no character has a special meaning.
std::string UriOf(const std::string& path, Access access) {
  std::string uri = "file:";
  for (const char c : path) {
    const bool means = c == '%' || c == '?' || c == '#';
    uri += means ? "%" + HexByte(static_cast<std::uint8_t>(c)) : std::string(1, c);
  }
  constexpr std::array<const char*, 3> kOptions{"?mode=ro", "?immutable=1", "?mode=ro&vfs=unix-none"};
  return uri + kOptions.at(static_cast<std::size_t>(access));
}

SqliteHandle OpenFile(const std::string& path, Access access) {
  sqlite3* opened = nullptr;
  const int result =
      sqlite3_open_v2(UriOf(path, access).c_str(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
  SqliteHandle handle(opened);
  if (result != SQLITE_OK) return nullptr;
  sqlite3_busy_timeout(opened, kBusyMilliseconds);
  sqlite3_db_config(opened, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  if (access == Access::kLog)
    sqlite3_exec(opened, "PRAGMA locking_mode = EXCLUSIVE", nullptr, nullptr, nullptr);
  return handle;
}

/// SQLITE_OK, or the error that prevented the copy.
int CopyInto(sqlite3* memory, const std::string& path, Access access) {
  const SqliteHandle file = OpenFile(path, access);
  if (!file) return SQLITE_CANTOPEN;
  sqlite3_backup* copy = sqlite3_backup_init(memory, "main", file.get(), "main");
  if (copy == nullptr) return sqlite3_extended_errcode(memory);
  sqlite3_backup_step(copy, -1);
  return sqlite3_backup_finish(copy);
}

std::string ReasonOf(int result) {
  if (result == SQLITE_READONLY_ROLLBACK) {
    return "a change to it was not finished, open it once with the program that made it";
  }
  return (result & 0xFF) == SQLITE_BUSY ? "somebody is changing it" : sqlite3_errstr(result);
}

}  // namespace

bool SqliteStamp::Settled() const {
  constexpr std::chrono::seconds kCoarsestTick(2);
  const auto limit = std::filesystem::file_time_type::clock::now() - 2 * kCoarsestTick;
  return written != std::filesystem::file_time_type::min() && written <= limit && logWritten <= limit;
}

bool IsUnchanged(const std::string& path, const SqliteStamp& stamp) {
  std::error_code unknown;
  const std::string file = FileBehind(path, unknown);
  return !unknown && StampOf(file) == stamp && !std::filesystem::exists(file + "-journal", unknown);
}

SqliteSnapshot TakeSnapshot(const std::string& path, std::uintmax_t mostBytes) {
  std::error_code unknown;
  const std::string file = FileBehind(path, unknown);
  if (unknown) throw BadDatabase(path, "the file cannot be read");
  for (int tries = 0; tries < kMostTries; ++tries) {
    const Access access = AccessTo(path);
    const SqliteStamp stamp = StampOf(file);
    if (stamp.size > mostBytes || stamp.logSize > mostBytes) {
      throw BadDatabase(path, "it is larger than " + std::to_string(mostBytes >> 20U) + " MiB");
    }
    sqlite3* memory = nullptr;
    sqlite3_open(":memory:", &memory);
    SqliteHandle handle(memory);
    const int result = CopyInto(memory, file, access);
    if (StampOf(file) != stamp) continue;
    if (result != SQLITE_OK) throw BadDatabase(path, ReasonOf(result));
    return {std::move(handle), stamp};
  }
  throw BadDatabase(path, ReasonOf(SQLITE_BUSY));
}

}  // namespace marlinset
