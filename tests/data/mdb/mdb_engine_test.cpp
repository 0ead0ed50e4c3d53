// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/mdb/mdb_engine.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <random>

#include "data/row_query.h"
#include "tests/support/database_tool.h"

namespace marlinset {
namespace {

using Json = nlohmann::ordered_json;
using testing::ElementsAre;

constexpr std::size_t kPage = 4096;
constexpr std::string_view kFilterQuery =
    "Select * from [Down Converter Filters] where [Description] <> 'Custom' Order By [Order] ";
const std::string kSample = SAMPLE_FOLDER "access/shotsys.mdb";

std::string BytesOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

FieldValue ValueOf(const Json& json, const std::string& type) {
  if (json.is_null()) return {};
  if (json.is_boolean()) return std::int64_t{json.get<bool>()};
  if (json.is_string()) return json.get<std::string>();
  if (type == "Double" || !json.is_number_integer()) return json.get<double>();
  return json.get<std::int64_t>();
}

/// Reads what the listing beside a database says, as Access shows it.
void ExpectListing(const std::string& stem, std::size_t count) {
  const auto database = MdbEngine().OpenDatabase(stem + ".mdb");
  const Json tables = Json::parse(BytesOf(stem + ".json"));
  ASSERT_EQ(tables.size(), count);
  for (const auto& [name, table] : tables.items()) {
    const auto rows = database->OpenRecordset(name);
    ASSERT_EQ(rows->RecordCount(), static_cast<int>(table["rows"].size())) << name;
    for (const Json& row : table["rows"]) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string column = table["columns"][i];
        EXPECT_EQ(rows->Fields(column), ValueOf(row[i], table["types"][i]))
            << name << ", " << column << ": " << row[i];
      }
      rows->MoveNext();
    }
  }
}

TEST(MdbEngine, GivesEveryRowInTableOrderWithTheTypeOfItsColumn) {
  ExpectListing(SAMPLE_FOLDER "access/shotsys", 17);
}

TEST(MdbEngine, ReadsRowsFromBeforeAColumnWasAddedOrTakenOut) {
  ExpectListing(SAMPLE_FOLDER "access/added_columns", 2);
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
  EXPECT_EQ(database->OpenRecordset("select * from General")->RecordCount(), 2);
  for (const auto& [query, failure] : {std::pair{"select * from [Missing]", kErrNoTable},
                                       {"select * from General where [n] <> 'a'", kErrNoColumn},
                                       {"select * from General order by n", kErrNoColumn},
                                       {"select * from General; delete from General", kErrInternal},
                                       {"select * from [General", kErrInternal},
                                       {"MSysObjects", kErrNoTable},
                                       {"Missing", kErrNoTable}}) {
    EXPECT_EQ(FailureOf([&] { database->OpenRecordset(query); }), failure) << query;
  }
}

TEST(MdbEngine, GivesTheRowsOfTheQueryAsTheOtherEngineDoes) {
  const Json table = Json::parse(BytesOf(SAMPLE_FOLDER "access/shotsys.json"))["Down Converter Filters"];
  std::string columns;
  for (const std::string column : table["columns"]) columns += (columns.empty() ? "[" : ", [") + column + "]";
  std::string sql = "CREATE TABLE [Down Converter Filters] (" + columns + ");";
  for (const Json& row : table["rows"]) {
    std::string values = row.dump();  // [1, "Soft", false], which SQL writes (1, 'Soft', false)
    std::replace(values.begin(), values.end(), '"', '\'');
    sql += "INSERT INTO [Down Converter Filters] VALUES (" + values.substr(1, values.size() - 2) + ");";
  }
  const TempFolder folder;
  RunSql(folder.File("rows.mdb"), sql);
  const auto access = MdbEngine().OpenDatabase(kSample)->OpenRecordset(kFilterQuery);
  const auto sqlite = SqliteEngine().OpenDatabase(folder.File("rows.mdb"))->OpenRecordset(kFilterQuery);
  ASSERT_EQ(access->RecordCount(), 15);
  ASSERT_EQ(sqlite->RecordCount(), 15);
  for (int row = 0; row < 15; ++row, access->MoveNext(), sqlite->MoveNext()) {
    for (const std::string column : table["columns"])
      EXPECT_EQ(TextOf(access->Fields(column)), TextOf(sqlite->Fields(column))) << row << ", " << column;
  }
}

TEST(RowQuery, LeavesNullsOutAndKeepsRowsOfOneOrderInTheirPlaces) {
  const auto row = [](FieldValue order, const char* text) {
    return std::vector<FieldValue>{std::move(order), text ? FieldValue(std::string(text)) : FieldValue()};
  };
  const auto number = [](int value) { return FieldValue(std::int64_t{value}); };
  const RowSet filters{{"Order", "Description"},
                       {row(number(10), "Last"), row(number(2), "CUSTOM"), row(number(3), nullptr),
                        row(number(2), "First"), row({}, "No order"), row(number(2), "Second")}};
  std::vector<std::string> texts;
  for (const auto& kept : RowQuery::Parse(kFilterQuery).Of(filters).rows) texts.push_back(TextOf(kept[1]));
  EXPECT_THAT(texts, ElementsAre("No order", "First", "Second", "Last"));
  EXPECT_EQ(RowQuery::Parse("select * from t where c <> 'it''s'").unwanted, "it's");
}

/// What happened to copies of the sample on the way to the field.
TEST(MdbEngine, RefusesDamagedFiles) {
  const TempFolder folder;
  const std::string whole = BytesOf(kSample);
  std::mt19937 random(7340);
  std::string noise = whole;
  std::generate(noise.begin() + kPage, noise.end(), [&] { return static_cast<char>(random()); });
  for (const std::string& bytes :
       {std::string(), std::string(6900, 'x'), whole.substr(0, 19), whole.substr(0, kPage),
        whole.substr(0, whole.size() / 2), whole.substr(0, whole.size() / 2 + 1234), noise,
        std::string(whole).replace(0x14, 1, 1, '\0'),     // of Access 97
        std::string(whole).replace(0x14, 1, 1, '\2')}) {  // of Access 2007
    folder.Write("damaged", bytes);
    EXPECT_EQ(FailureOf([&] {
                const auto database = MdbEngine().OpenDatabase(folder.File("damaged"));
                database->OpenRecordset("System Parameters");
                database->OpenRecordset("Help Messages");
              }),
              kErrBadDatabase)
        << bytes.size() << " bytes";
  }
  EXPECT_EQ(FailureOf([&] { MdbEngine().OpenDatabase(folder.File("nowhere")); }), kErrNoDatabase);
  EXPECT_EQ(FailureOf([&] { MdbEngine().OpenDatabase(folder.Path()); }), kErrBadDatabase) << "a folder";
}

TEST(MdbEngine, HeedsNoCodePageOfTheUsers) {
  setenv("MDBICONV", "ISO-8859-15", 1);
  const auto rows = MdbEngine().OpenDatabase(kSample)->OpenRecordset("Help Messages");
  rows->MoveNext();
  EXPECT_EQ(TextOf(rows->Fields("Message Text")), "Line numbers 10–20 are usual in 525-line systems.");
}

}  // namespace
}  // namespace marlinset
