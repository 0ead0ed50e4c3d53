// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/sqlite/sqlite_engine.h"

#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <vector>

#include "base/runtime_error.h"
#include "tests/support/database_tool.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

struct SqliteEngineTest : testing::Test {
  std::unique_ptr<Recordset> Open(std::string_view nameOrQuery) const {
    return SqliteEngine().OpenDatabase(path)->OpenRecordset(nameOrQuery);
  }
  TempFolder folder;
  std::string path = folder.File("rows.mdb");
};

TEST_F(SqliteEngineTest, GivesATableInTheOrderInWhichRowsWerePutIn) {
  // Neither a sorted index nor the place of a deleted row may change the order.
  RunSql(path,
         "CREATE TABLE \"Font Sizes\" (Name TEXT UNIQUE); INSERT INTO \"Font Sizes\" VALUES ('z'), ('gone'), "
         "('m'); DELETE FROM \"Font Sizes\" WHERE Name = 'gone'; INSERT INTO \"Font Sizes\" VALUES ('a');");
  EXPECT_THAT(ColumnOf(*Open("font SIZES"), "NAME"), ElementsAre("z", "m", "a"));
}

TEST_F(SqliteEngineTest, RefusesWhatIsNoDatabase) {
  EXPECT_EQ(FailureOf([&] { SqliteEngine().OpenDatabase(path); }), kErrNoDatabase);
  ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
  for (const std::string& file : {folder.Path(), folder.File("pipe"), folder.Write("empty.mdb", ""),
                                  folder.Write("text.mdb", "Dear operator, this is a text.\n"),
                                  folder.Write("start.mdb", std::string_view("SQLite format 3\0", 16))}) {
    EXPECT_EQ(FailureOf([&] { SqliteEngine().OpenDatabase(file); }), kErrBadDatabase) << file;
  }
}

TEST_F(SqliteEngineTest, ChecksAFileAgainOnceItWasWrittenTo) {
  RunSql(path, "PRAGMA page_size = 512; CREATE TABLE T (n); INSERT INTO T VALUES (1);");
  std::string bent = folder.Read("rows.mdb");
  std::fill(bent.begin() + 512, bent.begin() + 524, '\x7F');
  SqliteEngine engine;
  for (const int hours : {2, 1}) {
    std::filesystem::last_write_time(
        path, std::filesystem::file_time_type::clock::now() - std::chrono::hours(hours));
    EXPECT_EQ(FailureOf([&] { engine.OpenDatabase(path); }), hours == 2 ? 0 : kErrBadDatabase);
    folder.Write("rows.mdb", bent);
  }
  EXPECT_EQ(FailureOf([&] { engine.OpenDatabase(path); }), kErrBadDatabase) << "just now";
}

TEST_F(SqliteEngineTest, KeepsNoCopyOfAFileThatWasReplaced) {
  const auto time = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
  SqliteEngine engine;
  for (const char* content : {"a", "b"}) {
    RunSql(folder.File("new.mdb"),
           std::string("CREATE TABLE T (n); INSERT INTO T VALUES ('") + content + "');");
    std::filesystem::last_write_time(folder.File("new.mdb"), time);  // and of the same size
    std::filesystem::rename(folder.File("new.mdb"), path);
    for (int reading = 0; reading < 2; ++reading) {
      EXPECT_THAT(ColumnOf(*engine.OpenDatabase(path)->OpenRecordset("T"), "n"), ElementsAre(content));
    }
  }
}

TEST_F(SqliteEngineTest, LeavesNoTraceBesideAFileWithALogAndReadsWhatWaitsInIt) {
  RunSql(path, "PRAGMA journal_mode = WAL; CREATE TABLE T (n); INSERT INTO T VALUES ('in the file');");
  const auto names = [this] {
    std::vector<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
      all.push_back(entry.path().filename());
    return all;
  };
  // Takes the name, as a folder that can't be written would.
  std::filesystem::create_directory(path + "-shm");
  EXPECT_THAT(ColumnOf(*Open("T"), "n"), ElementsAre("in the file"));
  EXPECT_THAT(names(), UnorderedElementsAre("rows.mdb", "rows.mdb-shm"));
  std::filesystem::remove(path + "-shm");

  sqlite3* other = nullptr;  // somebody's program, which runs
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  sqlite3_exec(other, "INSERT INTO T VALUES ('in the log'); BEGIN; INSERT INTO T VALUES ('not yet');",
               nullptr, nullptr, nullptr);
  const auto log = folder.Read("rows.mdb-wal");
  EXPECT_THAT(ColumnOf(*Open("T"), "n"), ElementsAre("in the file", "in the log"));
  EXPECT_EQ(folder.Read("rows.mdb-wal"), log);
  EXPECT_EQ(sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(other);
  EXPECT_THAT(ColumnOf(*Open("T"), "n"), ElementsAre("in the file", "in the log", "not yet"));
}

TEST_F(SqliteEngineTest, CarriesOutNothingThatTheFileBringsAlong) {
  RunSql(path,
         "CREATE TABLE Plain (n); INSERT INTO Plain VALUES ('a'), ('B');"
         "CREATE VIEW Endless AS WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c) SELECT n "
         "FROM c;"
         "CREATE VIRTUAL TABLE Words USING fts5(n); CREATE TABLE Computed (n, m AS (n || n));");
  EXPECT_THAT(ColumnOf(*Open("select n from Plain where n <> 'b'"), "n"), ElementsAre("a"));
  for (const auto& [what, number] : {std::pair{"Endless", kErrNoTable},
                                     {"select * from Endless", kErrNoTable},
                                     {"Words", kErrNoTable},
                                     {"select * from Words", kErrInternal},
                                     {"Computed", kErrBadDatabase},
                                     {"select * from [Computed]", kErrBadDatabase}}) {
    EXPECT_EQ(FailureOf([&, sql = what] { Open(sql); }), number) << what;
  }
}

TEST_F(SqliteEngineTest, RefusesWhatCostsTooMuchAndSaysWhat) {
  RunSql(path,
         "CREATE TABLE T (a, b, c, d, e, f); WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c "
         "WHERE n < "
         "2000) "
         "INSERT INTO T SELECT n, zeroblob(20), 'c', 0, 0, 0 FROM c;");
  const auto refusal = [this](const SqliteLimits& limits) {
    return Failed([&] { SqliteEngine(limits).OpenDatabase(path)->OpenRecordset("T"); }).Description();
  };
  EXPECT_EQ(refusal({}), "");
  EXPECT_THAT(refusal({.time = std::chrono::milliseconds(0)}),
              EndsWith(": reading it takes longer than 0 seconds."));
  EXPECT_THAT(refusal({.rows = 1999}), EndsWith(": a table has too many rows."));
  EXPECT_THAT(refusal({.columns = 5}), HasSubstr("too many columns on T"));
  EXPECT_THAT(refusal({.bytes = std::filesystem::file_size(path)}), EndsWith(": a table holds too much."));
  EXPECT_THAT(refusal({.bytes = 1024}), EndsWith(": it is larger than 0 MiB."));
}

}  // namespace
}  // namespace marlinset
