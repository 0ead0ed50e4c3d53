// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/sqlite/sqlite_engine.h"

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

#include "base/text.h"

namespace marlinset {
namespace {

constexpr int kLongestValue = 1 << 20;    // bytes
constexpr int kStepsBetweenLooks = 1000;  // of the library; then it looks at the clock

struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
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

std::size_t SizeOf(const FieldValue& value) {
  const auto* text = std::get_if<std::string>(&value);
  return sizeof value + (text == nullptr ? 0 : text->size());
}

/// A name in double quotes; quotes inside it are doubled.
std::string Identifier(std::string_view text) {
  std::string quoted(1, '"');
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

bool Mentions(std::string_view text, std::string_view name) {
  for (std::size_t at = 0; at + name.size() <= text.size(); ++at) {
    if (EqualNoCase(text.substr(at, name.size()), name)) return true;
  }
  return false;
}

class SqliteDatabase : public Database {
 public:
  SqliteDatabase(SqliteHandle handle, std::string path, const SqliteLimits& limits)
      : handle_(std::move(handle)), path_(std::move(path)), limits_(limits) {
    Confine();
  }

  /// Reads every page once; an inconsistent file is refused here, before any row is taken from it.
  void Check() {
    StartClock();
    const RowSet result = Query("PRAGMA quick_check(1)");
    const std::string verdict = result.rows.empty() ? "no answer" : TextOf(result.rows[0].at(0));
    if (verdict != "ok") throw BadDatabase(path_, verdict);
  }

  std::unique_ptr<Recordset> OpenRecordset(std::string_view nameOrQuery) override {
    StartClock();
    if (IsQuery(nameOrQuery)) {
      CompareWithoutCase(nameOrQuery);
      return MakeRecordset(Read(Prepare(std::string(nameOrQuery)).get()));
    }
    return MakeRecordset(Read(PrepareTable(nameOrQuery).get()));
  }

 private:
  /// Nothing in the file is executed, and nothing takes for ever.
  void Confine() {
    sqlite3* handle = handle_.get();
    for (const auto& [what, on] : {std::pair{SQLITE_DBCONFIG_DEFENSIVE, 1},
                                   {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                   {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
                                   {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0}}) {
      sqlite3_db_config(handle, what, on, nullptr);
    }
    sqlite3_exec(handle, "PRAGMA ignore_check_constraints = ON", nullptr, nullptr, nullptr);
    sqlite3_drop_modules(handle, nullptr);
    sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLongestValue);
    sqlite3_limit(handle, SQLITE_LIMIT_COLUMN, limits_.columns);
    sqlite3_progress_handler(handle, kStepsBetweenLooks, TimeIsUp, this);
  }

  void StartClock() { deadline_ = std::chrono::steady_clock::now() + limits_.time; }
  static int TimeIsUp(void* database) {
    return std::chrono::steady_clock::now() >= static_cast<SqliteDatabase*>(database)->deadline_ ? 1 : 0;
  }

  /// Covers each table of the query with a view of the same name, in which texts compare without regard to
  /// case.
  void CompareWithoutCase(std::string_view query) {
    for (const auto& table : Query("SELECT name FROM main.sqlite_master WHERE type = 'table' AND "
                                   "rootpage > 0 AND name NOT LIKE 'sqlite@_%' ESCAPE '@'")
                                 .rows) {
      const std::string name = TextOf(table.at(0));
      if (!Mentions(query, name) || overlaid_.contains(name)) continue;
      std::string columns;
      for (const std::string& column : StoredColumns(name)) {
        if (!columns.empty()) columns += ", ";
        columns += Identifier(column) + " COLLATE NOCASE AS " + Identifier(column);
      }
      Query("CREATE TEMP VIEW " + Identifier(name) + " AS SELECT " + columns + " FROM main." +
            Identifier(name));
      overlaid_.insert(name);
    }
  }

  /// Virtual tables, which have no page of their own, do not count.
  Statement PrepareTable(std::string_view name) {
    const Statement search = Prepare(
        "SELECT name FROM main.sqlite_master WHERE type = 'table' AND rootpage > 0 AND name = ? COLLATE "
        "NOCASE AND name NOT LIKE 'sqlite@_%' ESCAPE '@'");
    sqlite3_bind_text(search.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_TRANSIENT);
    const RowSet found = Read(search.get());
    if (found.rows.empty()) throw NoTable(name);
    const std::string table = TextOf(found.rows[0].at(0));
    StoredColumns(table);
    const std::string all = "SELECT * FROM main." + Identifier(table);
    try {
      return Prepare(all + " ORDER BY rowid");
    } catch (const RuntimeError& failure) {
      if (failure.Number() != kErrNoColumn) throw;
      return Prepare(all);  // a table without row numbers orders its rows by key
    }
  }

  /// Names of a table's columns. A computed one would execute what somebody wrote into the file.
  std::vector<std::string> StoredColumns(const std::string& table) {
    const RowSet columns = Query("PRAGMA main.table_xinfo(" + Identifier(table) + ")");
    const std::size_t name = columns.IndexOf("name");
    const std::size_t hidden = columns.IndexOf("hidden");
    std::vector<std::string> names;
    for (const auto& row : columns.rows) {
      names.push_back(TextOf(row[name]));
      if (Int16Of(row[hidden]) != 0) {
        throw BadDatabase(path_, "column '" + names.back() + "' of '" + table + "' is computed");
      }
    }
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
    std::size_t bytes = 0;
    int result = sqlite3_step(statement);
    for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
      if (set.rows.size() == limits_.rows) throw BadDatabase(path_, "a table has too many rows");
      auto& row = set.rows.emplace_back();
      row.reserve(static_cast<std::size_t>(columns));
      for (int i = 0; i < columns; ++i) bytes += SizeOf(row.emplace_back(ValueOf(statement, i)));
      if (bytes > limits_.bytes) throw BadDatabase(path_, "a table holds too much");
    }
    if (result != SQLITE_DONE) throw Failure();
    return set;
  }

  /// SQLite reports a missing table or column only as text.
  RuntimeError Failure() const {
    const std::string message = sqlite3_errmsg(handle_.get());
    if (sqlite3_errcode(handle_.get()) == SQLITE_INTERRUPT) {
      return BadDatabase(
          path_, "reading it takes longer than " + std::to_string(limits_.time.count() / 1000) + " seconds");
    }
    if (sqlite3_errcode(handle_.get()) != SQLITE_ERROR) return BadDatabase(path_, message);
    constexpr std::string_view kTable = "no such table: ";
    constexpr std::string_view kColumn = "no such column: ";
    if (message.starts_with(kTable)) return NoTable(message.substr(kTable.size()));
    if (message.starts_with(kColumn)) {
      return NoColumn(message.substr(kColumn.size()));
    }
    return {kErrInternal, "Query failed: " + message};
  }

  SqliteHandle handle_;
  std::string path_;
  SqliteLimits limits_;
  std::chrono::steady_clock::time_point deadline_;
  std::set<std::string> overlaid_;
};

/// A database that others use, too.
class SharedDatabase : public Database {
 public:
  explicit SharedDatabase(std::shared_ptr<Database> database) : database_(std::move(database)) {}
  std::unique_ptr<Recordset> OpenRecordset(std::string_view nameOrQuery) override {
    return database_->OpenRecordset(nameOrQuery);
  }

 private:
  std::shared_ptr<Database> database_;
};

}  // namespace

std::unique_ptr<Database> SqliteEngine::OpenDatabase(const std::string& path) {
  std::error_code ignored;
  const std::string absolute = std::filesystem::absolute(path, ignored).string();
  if (!std::filesystem::exists(absolute, ignored)) {
    throw RuntimeError(kErrNoDatabase, "Couldn't find file '" + path + "'.");
  }
  if (kept_ && keptPath_ == path && IsUnchanged(path, keptStamp_)) {
    return std::make_unique<SharedDatabase>(kept_);
  }
  kept_.reset();
  SqliteSnapshot snapshot = TakeSnapshot(path, limits_.bytes);
  auto database = std::make_shared<SqliteDatabase>(std::move(snapshot.handle), path, limits_);
  database->Check();
  if (snapshot.stamp.Settled()) {
    kept_ = database;
    keptPath_ = path;
    keptStamp_ = snapshot.stamp;
  }
  return std::make_unique<SharedDatabase>(std::move(database));
}

}  // namespace marlinset
