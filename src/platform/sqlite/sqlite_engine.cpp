// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/sqlite_engine.h"

#include <sqlite3.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/row_set.h"

namespace marlinset {
namespace {

constexpr int kLongestValue = 1 << 20;  // bytes
// How long a file that is just being written may keep a reader waiting.
constexpr int kBusyMilliseconds = 1000;

struct CloseDatabase {
  void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Handle = std::unique_ptr<sqlite3, CloseDatabase>;
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

FieldValue ValueOf(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return std::int64_t{sqlite3_column_int64(statement, column)};
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement, column);
    default: {
      const void* bytes = sqlite3_column_blob(statement, column);
      const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
      return bytes == nullptr ? std::string() : std::string(static_cast<const char*>(bytes), size);
    }
  }
}

/// A name in double quotes, a text in single ones, with the quotes inside it doubled.
std::string Quoted(std::string_view text, char quote = '"') {
  std::string quoted(1, quote);
  for (const char c : text) quoted.append(c == quote ? 2 : 1, c);
  return quoted + quote;
}

class SqliteDatabase : public Database {
 public:
  SqliteDatabase(Handle handle, std::string path) : handle_(std::move(handle)), path_(std::move(path)) {}

  /// Reads every page once; what does not hang together is refused here, before any row is taken from it.
  void Check() {
    const RowSet result = Query("PRAGMA quick_check(1)");
    const std::string verdict = result.rows.empty() ? "no answer" : TextOf(result.rows[0].at(0));
    if (verdict != "ok") throw BadDatabase(path_, verdict);
  }

  std::unique_ptr<Recordset> OpenRecordset(std::string_view nameOrQuery) override {
    if (IsQuery(nameOrQuery)) {
      CompareWithoutCase();
      return MakeRecordset(Read(Prepare(std::string(nameOrQuery)).get()));
    }
    return MakeRecordset(Read(PrepareTable(nameOrQuery).get()));
  }

 private:
  /// Lays a view of the same name over each table, in which texts compare without regard to case. The views
  /// live in this connection's own memory; the file stays as it is.
  void CompareWithoutCase() {
    if (std::exchange(comparesWithoutCase_, true)) return;
    Query("PRAGMA temp_store = MEMORY");
    for (const std::string& table : Names(
             "SELECT name FROM main.sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite@_%' ESCAPE "
             "'@'")) {
      std::string columns;
      for (const std::string& column :
           Names("SELECT name FROM pragma_table_info(" + Quoted(table, '\'') + ", 'main') ORDER BY cid")) {
        if (!columns.empty()) columns += ", ";
        columns += Quoted(column) + " COLLATE NOCASE AS " + Quoted(column);
      }
      Query("CREATE TEMP VIEW " + Quoted(table) + " AS SELECT " + columns + " FROM main." + Quoted(table));
    }
  }

  /// Virtual tables, which have no page of their own, are none.
  Statement PrepareTable(std::string_view name) {
    const Statement search = Prepare(
        "SELECT name FROM main.sqlite_master WHERE type = 'table' AND rootpage > 0 AND name = ? COLLATE "
        "NOCASE AND name NOT LIKE 'sqlite@_%' ESCAPE '@'");
    sqlite3_bind_text(search.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_TRANSIENT);
    const RowSet found = Read(search.get());
    if (found.rows.empty()) throw NoTable(name);
    const std::string all = "SELECT * FROM main." + Quoted(TextOf(found.rows[0].at(0)));
    try {
      return Prepare(all + " ORDER BY rowid");
    } catch (const RuntimeError& failure) {
      if (failure.Number() != kErrNoColumn) throw;
      return Prepare(all);  // a table without row numbers keeps its rows by key
    }
  }

  std::vector<std::string> Names(const std::string& query) {
    std::vector<std::string> names;
    for (const auto& row : Query(query).rows) names.push_back(TextOf(row.at(0)));
    return names;
  }

  RowSet Query(const std::string& sql) { return Read(Prepare(sql).get()); }

  Statement Prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v2(handle_.get(), sql.c_str(), -1, &statement, nullptr);
    if (result != SQLITE_OK) throw Failure();
    return Statement(statement);
  }

  RowSet Read(sqlite3_stmt* statement) {
    RowSet set;
    const int columns = sqlite3_column_count(statement);
    for (int i = 0; i < columns; ++i) set.columns.emplace_back(sqlite3_column_name(statement, i));
    int result = sqlite3_step(statement);
    for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
      if (set.rows.size() == kMostRows) throw BadDatabase(path_, "too many rows");
      auto& row = set.rows.emplace_back();
      for (int i = 0; i < columns; ++i) row.push_back(ValueOf(statement, i));
    }
    if (result != SQLITE_DONE) throw Failure();
    return set;
  }

  /// SQLite tells a missing table and column only in words.
  RuntimeError Failure() const {
    const std::string message = sqlite3_errmsg(handle_.get());
    if (sqlite3_errcode(handle_.get()) != SQLITE_ERROR) return BadDatabase(path_, message);
    constexpr std::string_view kTable = "no such table: ";
    constexpr std::string_view kColumn = "no such column: ";
    if (message.starts_with(kTable)) return NoTable(message.substr(kTable.size()));
    if (message.starts_with(kColumn)) {
      return NoColumn(message.substr(kColumn.size()));
    }
    return {kErrInternal, "Query failed: " + message};
  }

  Handle handle_;
  std::string path_;
  bool comparesWithoutCase_ = false;
};

/// The first bytes of every SQLite file. Looked at here because the library takes an empty file for an empty
/// database.
void CheckSignature(const std::string& path) {
  constexpr std::string_view kSignature("SQLite format 3\0", 16);
  std::array<char, 16> start{};
  std::error_code ignored;
  std::ifstream in;
  // A pipe would be waited for.
  if (std::filesystem::is_regular_file(path, ignored)) in.open(path, std::ios::binary);
  if (!in.is_open()) throw BadDatabase(path, "the file cannot be read");
  in.read(start.data(), start.size());
  if (!in || std::string_view(start.data(), start.size()) != kSignature) {
    throw BadDatabase(path, "the file is not a reference database");
  }
}

std::unique_ptr<SqliteDatabase> Open(const std::string& path, const std::string& absolute) {
  std::error_code ignored;
  if (!std::filesystem::exists(absolute, ignored)) {
    throw RuntimeError(kErrNoDatabase, "Couldn't find file '" + path + "'.");
  }
  CheckSignature(path);
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(absolute.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
  Handle handle(opened);
  if (result != SQLITE_OK) throw BadDatabase(path, sqlite3_errstr(result));
  sqlite3_busy_timeout(handle.get(), kBusyMilliseconds);
  sqlite3_limit(handle.get(), SQLITE_LIMIT_LENGTH, kLongestValue);
  sqlite3_db_config(handle.get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  return std::make_unique<SqliteDatabase>(std::move(handle), path);
}

}  // namespace

std::unique_ptr<Database> SqliteEngine::OpenDatabase(const std::string& path) {
  std::error_code ignored;
  // An absolute path is never taken for a URI or for one of SQLite's own names.
  const std::string absolute = std::filesystem::absolute(path, ignored).string();
  const auto stamp = StampOf(absolute);
  auto database = Open(path, absolute);
  const auto known = whole_.find(absolute);
  if (!stamp || known == whole_.end() || known->second != *stamp) {
    whole_.erase(absolute);
    database->Check();
    if (stamp) whole_[absolute] = *stamp;
  }
  return database;
}

/// Nothing for a file that is not there or was written to just now: another write within the same tick of the
/// file system's clock would leave no trace.
std::optional<SqliteEngine::Stamp> SqliteEngine::StampOf(const std::string& path) {
  constexpr std::chrono::seconds kCoarsestTick(2);
  std::error_code failure;
  Stamp stamp;
  stamp.size = std::filesystem::file_size(path, failure);
  if (!failure) stamp.written = std::filesystem::last_write_time(path, failure);
  if (failure || std::filesystem::file_time_type::clock::now() - stamp.written < 2 * kCoarsestTick) {
    return std::nullopt;
  }
  return stamp;
}

}  // namespace marlinset
