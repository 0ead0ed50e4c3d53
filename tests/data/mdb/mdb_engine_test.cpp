// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/mdb/mdb_engine.h"

#include <filesystem>
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

FieldValue ValueOf(const Json& json, const std::string& type) {
  if (json.is_null()) return {};
  if (json.is_boolean()) return std::int64_t{json.get<bool>()};
  if (json.is_string()) return json.get<std::string>();
  if (type == "Double" || !json.is_number_integer()) return json.get<double>();
  return json.get<std::int64_t>();
}

/// Compares a database with the listing beside it, which says what Access shows.
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

/// The rows of the filters hold no number, no text, and the unwanted text in other letters.
TEST(BothEngines, RunTheQueryAlikeAndRefuseTheSame) {
  const TempFolder folder;
  RunSql(folder.File("rows.mdb"),
         "CREATE TABLE General (Version); CREATE TABLE [Down Converter Filters] ([Order], [Description]);"
         "INSERT INTO [Down Converter Filters] VALUES (10, 'Last'), (2, 'CUSTOM'), (3, NULL), (2, 'First'),"
         " (NULL, 'No order'), (0, 'custom'), (2, 'Second')");
  SqliteEngine sqliteEngine;
  const auto sqlite = sqliteEngine.OpenDatabase(folder.File("rows.mdb"));
  const auto access = MdbEngine().OpenDatabase(kSample);
  const auto table = sqlite->OpenRecordset("Down Converter Filters");
  RowSet filters{{"Order", "Description"}, {}};
  for (int i = 0; i < table->RecordCount(); ++i, table->MoveNext()) {
    filters.rows.push_back({table->Fields("Order"), table->Fields("Description")});
  }
  std::vector<std::string> kept;
  for (const auto& row : RowQuery::Parse(kFilterQuery).Of(filters).rows) kept.push_back(TextOf(row[1]));
  EXPECT_THAT(kept, ElementsAre("No order", "First", "Second", "Last"));
  EXPECT_EQ(ColumnOf(*sqlite->OpenRecordset(kFilterQuery), "Description"), kept);
  EXPECT_EQ(RowQuery::Parse("select * from t where c <> 'it''s'").unwanted, "it's");
  const auto shipped = ColumnOf(*access->OpenRecordset(kFilterQuery), "Description");
  EXPECT_EQ(shipped.size(), 15U);
  EXPECT_EQ(shipped.front(), "Off") << "the last row of the table";
  for (const auto& [query, failure] : {std::pair{"select * from General", 0},
                                       {"Missing", kErrNoTable},
                                       {"MSysObjects", kErrNoTable},
                                       {"sELECT * from [Missing]", kErrNoTable},
                                       {"select * from General where [n] <> 'a'", kErrNoColumn},
                                       {"select * from General order by n", kErrNoColumn},
                                       {"select * from [General", kErrInternal},
                                       {"select from where", kErrInternal}}) {
    EXPECT_EQ(FailureOf([&, sql = query] { access->OpenRecordset(sql); }), failure) << query;
    EXPECT_EQ(FailureOf([&, sql = query] { sqlite->OpenRecordset(sql); }), failure) << query;
  }
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
