// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace marlinset {

/// The parts between the separators, without the blanks around them; none of an empty text.
inline std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream whole(text);
  for (std::string part; std::getline(whole, part, separator);) {
    const std::size_t begin = part.find_first_not_of(' ');
    parts.push_back(begin == std::string::npos ? ""
                                               : part.substr(begin, part.find_last_not_of(' ') + 1 - begin));
  }
  return parts;
}

using TableRow = std::vector<std::string>;

/// The rows of a table in tests/samples/tables: columns between bars, # begins a comment. A row that ends
/// early has empty columns up to those of the longest.
inline std::vector<TableRow> TableOf(const std::string& name) {
  std::ifstream file(TABLE_FOLDER + name + ".txt");
  if (!file) throw std::runtime_error("no table " + name);
  std::vector<TableRow> rows;
  std::size_t columns = 0;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    columns = std::max(columns, rows.emplace_back(Split(line, '|')).size());
  }
  for (TableRow& row : rows) row.resize(columns);
  return rows;
}

}  // namespace marlinset
