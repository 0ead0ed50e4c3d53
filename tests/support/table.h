// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace marlinset {

/// The parts between the separators, without surrounding blanks.
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

/// The rows of a table in tests/samples/tables: columns between bars; # begins a comment; short rows are
/// filled up with empty columns.
inline std::vector<TableRow> TableOf(const std::string& name) {
  std::ifstream file(SAMPLE_FOLDER "tables/" + name + ".txt");
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

/// The bytes of a text such as "02 03 0F 00 35 B9".
inline std::vector<std::uint8_t> FromHex(std::string_view text) {
  std::istringstream words{std::string(text)};
  std::vector<std::uint8_t> bytes;
  for (unsigned byte = 0; words >> std::hex >> byte;) bytes.push_back(static_cast<std::uint8_t>(byte));
  return bytes;
}

/// Bytes as such a text, which a failed test shows readably.
inline std::string ToHex(const std::vector<std::uint8_t>& bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    if (!text.empty()) text += ' ';
    text += kDigits[byte >> 4U];
    text += kDigits[byte & 15U];
  }
  return text;
}

}  // namespace marlinset
