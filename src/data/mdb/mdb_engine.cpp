// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/mdb/mdb_engine.h"

#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "base/text.h"
#include "data/mdb/jet_file.h"
#include "data/mdb/jet_table.h"
#include "data/row_query.h"
#include "data/row_set.h"

namespace marlinset {
namespace {

constexpr std::uint32_t kCatalogPage = 2;
constexpr std::int64_t kTableObject = 1;
constexpr std::int64_t kSystemFlags = 0x80000002;
constexpr std::int64_t kPageMask = 0xffffff;

struct CatalogEntry {
  std::string name;
  std::uint32_t page;
};

/// The tables of a file without the system's own. The library's own routine for the catalog never returns on
/// some damaged files.
std::vector<CatalogEntry> ReadCatalog(JetFile& file) {
  const RowSet objects = ReadRows(file, JetTable(file, kCatalogPage));
  const std::size_t id = objects.IndexOf("Id");
  const std::size_t name = objects.IndexOf("Name");
  const std::size_t type = objects.IndexOf("Type");
  const std::size_t flags = objects.IndexOf("Flags");
  std::vector<CatalogEntry> tables;
  for (const auto& row : objects.rows) {
    const auto number = [&](std::size_t column) {
      const auto* value = std::get_if<std::int64_t>(&row[column]);
      return value == nullptr ? 0 : *value;
    };
    if (number(type) != kTableObject || (number(flags) & kSystemFlags) != 0) continue;
    tables.push_back({TextOf(row[name]), static_cast<std::uint32_t>(number(id) & kPageMask)});
  }
  return tables;
}

class MdbDatabase : public Database {
 public:
  explicit MdbDatabase(const std::string& path) : file_(path) {
    try {
      tables_ = ReadCatalog(file_);
    } catch (const RuntimeError&) {
      // Also thrown if the catalog lacks a column.
      file_.Check(false, "its list of tables is damaged");
    }
  }

  std::unique_ptr<Recordset> OpenRecordset(std::string_view nameOrQuery) override {
    if (!IsQuery(nameOrQuery)) return MakeRecordset(Read(nameOrQuery));
    const RowQuery query = RowQuery::Parse(nameOrQuery);
    return MakeRecordset(query.Of(Read(query.table)));
  }

 private:
  RowSet Read(std::string_view table) {
    for (const CatalogEntry& entry : tables_) {
      if (EqualNoCase(entry.name, table)) return ReadRows(file_, JetTable(file_, entry.page));
    }
    throw NoTable(table);
  }

  JetFile file_;
  std::vector<CatalogEntry> tables_;
};

}  // namespace

std::unique_ptr<Database> MdbEngine::OpenDatabase(const std::string& path) {
  std::error_code ignored;
  if (!std::filesystem::exists(path, ignored)) {
    throw RuntimeError(kErrNoDatabase, "Couldn't find file '" + path + "'.");
  }
  return std::make_unique<MdbDatabase>(path);
}

}  // namespace marlinset
