// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/sqlite_engine.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <vector>

#include "platform/runtime_error.h"
#include "tests/support/database_tool.h"

namespace marlinset {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> Column(Recordset& rows, std::string_view column) {
  std::vector<std::string> texts;
  const int count = rows.RecordCount();
  for (int i = 0; i < count; ++i, rows.MoveNext()) texts.push_back(TextOf(rows.Fields(column)));
  return texts;
}

class SqliteEngineTest : public testing::Test {
 protected:
  std::unique_ptr<Recordset> Open(std::string_view nameOrQuery) const {
    return SqliteEngine().OpenDatabase(path)->OpenRecordset(nameOrQuery);
  }
  int OpenFailure(const std::string& file) const {
    return FailureOf([&] { SqliteEngine().OpenDatabase(file); });
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

  RunSql(path, "CREATE TABLE Keyed (Id TEXT PRIMARY KEY) WITHOUT ROWID; INSERT INTO Keyed VALUES ('k');");
  EXPECT_THAT(Column(*Open("Keyed"), "Id"), ElementsAre("k"));
}

TEST_F(SqliteEngineTest, KeepsTheTypesOfValues) {
  RunSql(path,
         "CREATE TABLE T (a, b, c, d, e); INSERT INTO T VALUES (-32768, 29.97, 'Größe', NULL, ''), (1, 2, 3, "
         "4, 5)");
  const auto rows = Open("T");
  EXPECT_EQ(rows->Fields("a"), FieldValue(std::int64_t{-32768}));
  EXPECT_EQ(rows->Fields("b"), FieldValue(29.97));
  EXPECT_EQ(rows->Fields("c"), FieldValue(std::string("Größe")));
  EXPECT_EQ(rows->Fields("d"), FieldValue());
  EXPECT_EQ(rows->Fields("e"), FieldValue(std::string()));
}

TEST_F(SqliteEngineTest, MovesAsARecordsetDoes) {
  RunSql(path, "CREATE TABLE T (n); INSERT INTO T VALUES (1), (2), (3); CREATE TABLE None (n);");
  const auto rows = Open("T");
  EXPECT_EQ(rows->RecordCount(), 3);
  rows->MoveLast();
  EXPECT_EQ(TextOf(rows->Fields("n")), "3");
  rows->MoveNext();
  EXPECT_EQ(FailureOf([&] { rows->Fields("n"); }), kErrNoCurrentRecord);
  EXPECT_EQ(FailureOf([&] { rows->MoveNext(); }), kErrNoCurrentRecord);
  rows->MoveFirst();
  EXPECT_EQ(TextOf(rows->Fields("n")), "1");
  EXPECT_EQ(FailureOf([&] { rows->Fields("m"); }), kErrNoColumn);

  const auto none = Open("None");
  EXPECT_EQ(none->RecordCount(), 0);
  EXPECT_EQ(FailureOf([&] { none->MoveFirst(); }), kErrNoCurrentRecord);
  EXPECT_EQ(FailureOf([&] { none->MoveLast(); }), kErrNoCurrentRecord);
  EXPECT_EQ(FailureOf([&] { none->Fields("n"); }), kErrNoCurrentRecord);
  EXPECT_EQ(FailureOf([&] { none->Fields("m"); }), kErrNoColumn);
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

TEST_F(SqliteEngineTest, NeverWrites) {
  RunSql(path, "CREATE TABLE T (n); INSERT INTO T VALUES (1);");
  const std::string before = folder.Read("rows.mdb");
  const auto database = SqliteEngine().OpenDatabase(path);
  database->OpenRecordset("select * from T; delete from T");
  EXPECT_EQ(database->OpenRecordset("T")->RecordCount(), 1);
  EXPECT_EQ(folder.Read("rows.mdb"), before);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1) << "files left behind";
}

TEST_F(SqliteEngineTest, NamesWhatIsMissing) {
  const std::string nowhere = folder.File("nowhere/shotsys.mdb");
  try {
    SqliteEngine().OpenDatabase(nowhere);
    FAIL() << "opened a file that is not there";
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.Number(), kErrNoDatabase);
    EXPECT_THAT(failure.Description(), HasSubstr(nowhere));
  }
  RunSql(path, "CREATE TABLE T (n)");
  try {
    Open("Video Standards");
    FAIL() << "opened a table that is not there";
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.Number(), kErrNoTable);
    EXPECT_THAT(failure.Description(), HasSubstr("Video Standards"));
  }
  EXPECT_EQ(FailureOf([&] { Open("sqlite_master"); }), kErrNoTable);
  EXPECT_EQ(FailureOf([&] { Open("T\" --"); }), kErrNoTable);
}

TEST_F(SqliteEngineTest, RefusesWhatIsNoDatabase) {
  EXPECT_EQ(OpenFailure(folder.Path()), kErrBadDatabase) << "a folder";
  ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
  EXPECT_EQ(OpenFailure(folder.File("pipe")), kErrBadDatabase) << "waiting for a writer would be for ever";
  EXPECT_EQ(OpenFailure(folder.Write("empty.mdb", "")), kErrBadDatabase);
  EXPECT_EQ(OpenFailure(folder.Write("text.mdb", "Dear operator, this is a text.\n")), kErrBadDatabase);
  EXPECT_EQ(OpenFailure(folder.Write("start.mdb", std::string_view("SQLite format 3\0", 16))),
            kErrBadDatabase);
}

TEST_F(SqliteEngineTest, ChecksAFileAgainOnceItWasWrittenTo) {
  RunSql(path, "CREATE TABLE T (n); INSERT INTO T VALUES (1);");
  const auto age = [&](int hours) {
    std::filesystem::last_write_time(
        path, std::filesystem::file_time_type::clock::now() - std::chrono::hours(hours));
  };
  std::string bent = folder.Read("rows.mdb");
  std::fill(bent.begin() + 100, bent.begin() + 112, '\x7F');
  SqliteEngine engine;
  age(2);
  for (int twice = 0; twice < 2; ++twice) engine.OpenDatabase(path);
  folder.Write("rows.mdb", bent);
  EXPECT_EQ(FailureOf([&] { engine.OpenDatabase(path); }), kErrBadDatabase) << "just now";
  age(1);
  EXPECT_EQ(FailureOf([&] { engine.OpenDatabase(path); }), kErrBadDatabase) << "an hour ago";
}

/// Opens a damaged file and reads all of `tables`; every outcome but a crash, a hang or an unknown failure is
/// fine. Returns whether the file was refused.
bool Refused(const std::string& path, const std::vector<std::string>& tables) {
  try {
    const auto database = SqliteEngine().OpenDatabase(path);
    for (const std::string& table : tables) {
      const auto rows = database->OpenRecordset(table);
      for (int i = 0; i < rows->RecordCount(); ++i) rows->MoveNext();
    }
  } catch (const RuntimeError& failure) {
    EXPECT_THAT(failure.Number(), AnyOf(kErrBadDatabase, kErrNoTable)) << failure.Description();
    return true;
  }
  return false;
}

TEST_F(SqliteEngineTest, SurvivesDamage) {
  RunSql(path, "PRAGMA page_size = 512");
  for (const char* table : {"A", "B"}) {
    RunSql(path,
           std::string("PRAGMA page_size = 512; CREATE TABLE ") + table +
               " (Name TEXT UNIQUE, Number INTEGER, Long TEXT);"
               "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 60) INSERT INTO " +
               table + " SELECT 'window ' || i, i, replace(hex(zeroblob(i * 10)), '0', 'x') FROM n");
  }
  const std::string whole = folder.Read("rows.mdb");
  ASSERT_GT(whole.size(), 30000U);
  ASSERT_FALSE(Refused(path, {"A", "B"}));

  for (std::size_t length = 0; length < whole.size(); length += 512) {
    EXPECT_TRUE(Refused(folder.Write("cut" + std::to_string(length), whole.substr(0, length)), {"A", "B"}))
        << length << " bytes";
  }
  std::mt19937 random(7340);
  int refused = 0;
  constexpr int kCopies = 400;
  for (int copy = 0; copy < kCopies; ++copy) {
    std::string bytes = whole;
    for (int i = 0; i < 4; ++i) bytes[random() % bytes.size()] = static_cast<char>(random());
    // Structures stand at the beginning of a page; text in its middle may change unseen.
    bytes[random() % (bytes.size() / 512) * 512 + random() % 12] = static_cast<char>(random());
    refused += Refused(folder.Write("bent" + std::to_string(copy), bytes), {"A", "B"}) ? 1 : 0;
  }
  EXPECT_GT(refused, kCopies / 2);
}

}  // namespace
}  // namespace marlinset
