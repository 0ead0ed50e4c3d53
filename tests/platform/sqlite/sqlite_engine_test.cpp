// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/sqlite_engine.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <vector>

#include "platform/runtime_error.h"
#include "tests/support/database_tool.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

std::vector<std::string> Column(Recordset& rows, std::string_view column) {
  std::vector<std::string> texts;
  for (int i = 0; i < rows.RecordCount(); ++i, rows.MoveNext()) texts.push_back(TextOf(rows.Fields(column)));
  return texts;
}

struct SqliteEngineTest : testing::Test {
  std::unique_ptr<Recordset> Open(std::string_view nameOrQuery) const {
    return SqliteEngine().OpenDatabase(path)->OpenRecordset(nameOrQuery);
  }
  TempFolder folder;
  std::string path = folder.File("rows.mdb");
};

TEST_F(SqliteEngineTest, GivesATableInTheOrderInWhichRowsWerePutIn) {
  // A sorted index must not creep into the order, nor may a deleted row's place be taken for a later one.
  RunSql(path,
         "CREATE TABLE \"Font Sizes\" (Name TEXT UNIQUE); INSERT INTO \"Font Sizes\" VALUES ('z'), ('gone'), "
         "('m'); DELETE FROM \"Font Sizes\" WHERE Name = 'gone'; INSERT INTO \"Font Sizes\" VALUES ('a');");
  EXPECT_THAT(Column(*Open("font SIZES"), "NAME"), ElementsAre("z", "m", "a"));
}

TEST_F(SqliteEngineTest, RunsQueriesAsTheUnitsDatabasesDo) {
  RunSql(path,
         "CREATE TABLE [Down Converter Filters] ([Order], [Description], [it's]);"
         "INSERT INTO [Down Converter Filters] VALUES (10, 'Last', 0), (2, 'CUSTOM', 0), (3, NULL, 0), (2, "
         "'First', 0), (0, 'custom', 0);");
  constexpr std::string_view kQuery =
      "Select * from [Down Converter Filters] where [Description] <> 'Custom' Order By [Order] ";
  const auto database = SqliteEngine().OpenDatabase(path);
  for (int twice = 0; twice < 2; ++twice) {
    EXPECT_THAT(Column(*database->OpenRecordset(kQuery), "Description"), ElementsAre("First", "Last"));
  }
  EXPECT_EQ(FailureOf([&] { database->OpenRecordset("sELECT * from Missing"); }), kErrNoTable);
  EXPECT_EQ(FailureOf([&] { database->OpenRecordset("select n from [Down Converter Filters] order by m"); }),
            kErrNoColumn);
  EXPECT_EQ(FailureOf([&] { database->OpenRecordset("select from where"); }), kErrInternal);
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

}  // namespace
}  // namespace marlinset
