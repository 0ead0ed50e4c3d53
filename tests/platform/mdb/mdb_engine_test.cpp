// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/mdb/mdb_engine.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>
#include <random>

#include "core/record_columns.h"
#include "platform/row_query.h"
#include "tests/support/database_tool.h"

namespace marlinset {
namespace {

using Json = nlohmann::ordered_json;
using testing::AnyOf;
using testing::ElementsAre;

constexpr std::size_t kPage = 4096;
constexpr std::string_view kFilterQuery =
    "Select * from [Down Converter Filters] where [Description] <> 'Custom' Order By [Order] ";
const std::string kSample = SAMPLE_FOLDER "access/shotsys.mdb";

std::string BytesOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// All rows of the sample, in table order, as Access shows them.
const Json& Expected() {
  static const Json tables = Json::parse(BytesOf(SAMPLE_FOLDER "access/shotsys.json"));
  return tables;
}

FieldValue ValueOf(const Json& json) {
  if (json.is_null()) return {};
  if (json.is_boolean()) return std::int64_t{json.get<bool>()};
  if (json.is_number_integer()) return json.get<std::int64_t>();
  if (json.is_number()) return json.get<double>();
  return json.get<std::string>();
}

/// The sample's rows as an SQLite file.
std::string SqlOf(const Json& tables) {
  const auto quoted = [](const std::string& text, char quote) {
    std::string result(1, quote);
    for (const char c : text) result.append(c == quote ? 2 : 1, c);
    return result + quote;
  };
  std::string sql = "BEGIN;";
  for (const auto& [name, table] : tables.items()) {
    std::string columns;
    for (const Json& column : table["columns"]) columns += ',' + quoted(column, '"');
    sql += "CREATE TABLE " + quoted(name, '"') + "(" + columns.substr(1) + ");";
    for (const Json& row : table["rows"]) {
      std::string values;
      for (const Json& value : row) {
        values += ',' + (value.is_string() ? quoted(value, '\'') : value.dump());
      }
      sql += "INSERT INTO " + quoted(name, '"') + " VALUES(" + values.substr(1) + ");";
    }
  }
  return sql + "COMMIT;";
}

/// Reads every table and the query; every outcome but a crash, a hang or an unknown failure is fine. Gives
/// the number of the failure.
int FailureOfReading(const std::string& path) {
  return FailureOf([&] {
    const auto database = MdbEngine().OpenDatabase(path);
    for (const auto& [name, table] : Expected().items()) database->OpenRecordset(name);
    database->OpenRecordset(kFilterQuery);
  });
}

template <class Rec>
std::vector<std::string> TextsOf(const std::vector<Rec>& array) {
  std::vector<std::string> texts;
  for (const Rec& rec : array) {
    for (const auto& column : ColumnsOf<Rec>()) {
      texts.push_back(
          std::string(column.name) + ": " +
          std::visit([&](auto field) { return testing::PrintToString(rec.*field); }, column.field));
    }
  }
  return texts;
}

TEST(MdbEngine, GivesEveryRowInTableOrderWithTheTypeOfItsColumn) {
  const auto database = MdbEngine().OpenDatabase(kSample);
  ASSERT_EQ(Expected().size(), 17U);
  for (const auto& [name, table] : Expected().items()) {
    const auto rows = database->OpenRecordset(name);
    ASSERT_EQ(rows->RecordCount(), static_cast<int>(table["rows"].size())) << name;
    for (const Json& row : table["rows"]) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string column = table["columns"][i];
        FieldValue expected = ValueOf(row[i]);
        if (table["types"][i] == "Double" && !row[i].is_null()) expected = row[i].get<double>();
        EXPECT_EQ(rows->Fields(column), expected) << name << ", " << column << ": " << row[i];
      }
      rows->MoveNext();
    }
    EXPECT_EQ(FailureOf([&] { rows->Fields(table["columns"][0].get<std::string>()); }), kErrNoCurrentRecord);
  }
}

TEST(MdbEngine, FillsTheSameArraysAsSqliteDoes) {
  DatabaseTool sqlite;
  sqlite.Sql(SqlOf(Expected()));
  DatabaseTool access;
  access.variables.DatabasePath = kSample;
  for (DatabaseTool* tool : {&sqlite, &access}) {
    tool->database.LoadOperatingModes();
    tool->database.checkDatabase();
    tool->database.LoadArrays();
    EXPECT_EQ(tool->database.DatabaseVersion(), "2.11 b");
  }
  const Variables& a = access.variables;
  const Variables& b = sqlite.variables;
  EXPECT_EQ(TextsOf(a.VideoStandards), TextsOf(b.VideoStandards));
  EXPECT_EQ(TextsOf(a.CharMaxPositions), TextsOf(b.CharMaxPositions));
  EXPECT_EQ(TextsOf(a.CharStyles), TextsOf(b.CharStyles));
  EXPECT_EQ(TextsOf(a.CharSizes), TextsOf(b.CharSizes));
  EXPECT_EQ(TextsOf(a.SlateModes), TextsOf(b.SlateModes));
  EXPECT_EQ(TextsOf(a.DownConverterModes), TextsOf(b.DownConverterModes));
  EXPECT_EQ(TextsOf(a.DownConverterProcessModes), TextsOf(b.DownConverterProcessModes));
  EXPECT_EQ(TextsOf(a.DownConverterFilters), TextsOf(b.DownConverterFilters));
  EXPECT_EQ(TextsOf(a.SdiProgramOutputs), TextsOf(b.SdiProgramOutputs));
  EXPECT_EQ(TextsOf(a.CodeSources), TextsOf(b.CodeSources));
  EXPECT_EQ(TextsOf(a.TimeCodeAssignments), TextsOf(b.TimeCodeAssignments));
  EXPECT_EQ(TextsOf(a.OperatingModes), TextsOf(b.OperatingModes));
  EXPECT_EQ(TextsOf(a.HelpMessages), TextsOf(b.HelpMessages));
  EXPECT_EQ(TextsOf(a.CharWindows), TextsOf(b.CharWindows));
  EXPECT_EQ(TextsOf(a.SystemParameters), TextsOf(b.SystemParameters));
  EXPECT_EQ(a.CharWindows.size(), 19U) << "without device 0";
  EXPECT_EQ(a.DownConverterFilters.size(), 15U) << "without Custom";
  EXPECT_EQ(a.DownConverterFilters.front().Order, -1);
}

TEST(MdbEngine, RunsTheQueryOnWhateverTheRowsHold) {
  // A row renamed in the sample: the same text in other letters is still the text.
  const TempFolder folder;
  std::string bytes = BytesOf(kSample);
  constexpr std::string_view kStored("C\0u\0s\0t\0o\0m\0", 12);
  const std::size_t at = bytes.rfind(kStored);
  ASSERT_NE(at, std::string::npos);
  bytes.replace(at, kStored.size(), std::string_view("c\0U\0S\0T\0O\0M\0", 12));
  const auto database = MdbEngine().OpenDatabase(folder.Write("rows.mdb", bytes));
  EXPECT_EQ(database->OpenRecordset(kFilterQuery)->RecordCount(), 15);
  const auto all = database->OpenRecordset("Down Converter Filters");
  all->MoveNext();
  all->MoveNext();
  EXPECT_EQ(TextOf(all->Fields("description")), "cUSTOM");
  EXPECT_EQ(database->OpenRecordset("select * from General")->RecordCount(), 2);
  for (const auto& [query, failure] : {std::pair{"select * from [Missing]", kErrNoTable},
                                       {"select * from General where [n] <> 'a'", kErrNoColumn},
                                       {"select * from General order by n", kErrNoColumn},
                                       {"select * from General; delete from General", kErrInternal},
                                       {"select n from General", kErrInternal},
                                       {"select * from [General", kErrInternal},
                                       {"select * from General where n <> 'a", kErrInternal},
                                       {"MSysObjects", kErrNoTable},
                                       {"Missing", kErrNoTable}}) {
    EXPECT_EQ(FailureOf([&] { database->OpenRecordset(query); }), failure) << query;
  }
}

TEST(RowQuery, LeavesNullsOutAndKeepsRowsOfOneOrderInTheirPlaces) {
  const auto text = [](const char* value) { return FieldValue(std::string(value)); };
  const auto number = [](int value) { return FieldValue(std::int64_t{value}); };
  const RowSet filters{{"Order", "Description", "it's"},
                       {{number(10), text("Last"), text("d")},
                        {number(2), text("CUSTOM"), text("b")},
                        {number(3), {}, text("a")},
                        {number(2), text("First"), text("B")},
                        {{}, text("No order"), {}},
                        {number(2), text("Second"), text("C")}}};
  const auto descriptions = [&](std::string_view query) {
    std::vector<std::string> texts;
    for (const auto& row : RowQuery::Parse(query).Of(filters).rows) texts.push_back(TextOf(row[1]));
    return texts;
  };
  EXPECT_THAT(descriptions(kFilterQuery), ElementsAre("No order", "First", "Second", "Last"));
  EXPECT_THAT(descriptions("SELECT * FROM x ORDER BY [IT'S]"),
              ElementsAre("No order", "", "CUSTOM", "First", "Second", "Last"));
  EXPECT_EQ(RowQuery::Parse("select * from t where c <> 'it''s'").unwanted, "it's");
}

/// What happened to copies of the sample in the field and on the way there.
TEST(MdbEngine, RefusesDamagedFilesAtTheStart) {
  const TempFolder folder;
  const std::string whole = BytesOf(kSample);
  const auto changed = [&](std::size_t at, std::string_view bytes) {
    return std::string(whole).replace(at, bytes.size(), bytes);
  };
  std::mt19937 random(7340);
  std::string noise = whole;
  std::generate(noise.begin() + kPage, noise.end(), [&] { return static_cast<char>(random()); });
  const std::string text(6900, 'x');
  for (const auto& [name, bytes] :
       {std::pair<std::string, std::string>{"empty", ""},
        {"text", text},
        {"signature only", whole.substr(0, 19)},
        {"header only", whole.substr(0, kPage)},
        {"first half", whole.substr(0, whole.size() / 2)},
        {"cut inside a page", whole.substr(0, whole.size() / 2 + 1234)},
        {"noise behind the header", noise},
        {"of Access 97", changed(0x14, std::string(1, '\0'))},
        {"of Access 2007", changed(0x14, "\2")},
        {"catalog that leads in a circle", BytesOf(SAMPLE_FOLDER "access/damaged_catalog.mdb")},
        {"definitions", BytesOf(SAMPLE_FOLDER "access/damaged_definitions.mdb")},
        {"rows of the windows", BytesOf(SAMPLE_FOLDER "access/damaged_rows.mdb")},
        {"map of the standards", BytesOf(SAMPLE_FOLDER "access/damaged_map.mdb")}}) {
    DatabaseTool tool;
    folder.Write(name, bytes);
    tool.variables.DatabasePath = folder.File(name);
    const int failure = FailureOf([&] {
      tool.database.LoadOperatingModes();
      tool.database.LoadArrays();
    });
    EXPECT_EQ(failure, kErrBadDatabase) << name;
  }
  EXPECT_EQ(FailureOf([&] { MdbEngine().OpenDatabase(folder.File("nowhere")); }), kErrNoDatabase);
  EXPECT_EQ(FailureOf([&] { MdbEngine().OpenDatabase(folder.Path()); }), kErrBadDatabase) << "a folder";
}

TEST(MdbEngine, SurvivesDamage) {
  const TempFolder folder;
  const std::string whole = BytesOf(kSample);
  ASSERT_EQ(FailureOfReading(kSample), 0);
  std::mt19937 random(7340);
  int refused = 0;
  constexpr int kCopies = 200;
  for (int copy = 0; copy < kCopies; ++copy) {
    std::string bytes = whole;
    const std::size_t pages = whole.size() / kPage;
    for (int i = 0; i < 12; ++i) {
      // Structures stand at the beginning of a page; text in its middle may change unseen.
      const std::size_t page = random() % pages;
      bytes[page * kPage + random() % (i % 2 == 0 ? 96 : kPage)] = static_cast<char>(random());
    }
    const int failure = FailureOfReading(folder.Write("bent", bytes));
    EXPECT_THAT(failure, AnyOf(0, kErrBadDatabase, kErrNoTable, kErrNoColumn));
    refused += failure == 0 ? 0 : 1;
  }
  EXPECT_GT(refused, kCopies / 2);
}

TEST(MdbEngine, NeitherWritesNorHeedsTheUsersCodePage) {
  const TempFolder folder;
  const std::string path = folder.Write("rows.mdb", BytesOf(kSample));
  setenv("MDBICONV", "ISO-8859-15", 1);
  const auto rows = MdbEngine().OpenDatabase(path)->OpenRecordset("Help Messages");
  rows->MoveNext();
  EXPECT_EQ(TextOf(rows->Fields("Message Text")), "Line numbers 10–20 are usual in 525-line systems.");
  EXPECT_EQ(folder.Read("rows.mdb"), BytesOf(kSample));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1) << "files left behind";
}

}  // namespace
}  // namespace marlinset
