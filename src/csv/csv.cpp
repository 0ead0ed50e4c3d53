// SPDX-License-Identifier: GPL-3.0-or-later
#include "csv/csv.h"

#include <csv.h>

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "base/text.h"

namespace marlinset {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kSeparators = ",;\t";
constexpr std::string_view kSeparatorName = "sep=";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::size_t kBufferStep = 4096;

/// The next line with its end: LF, CR LF or CR.
std::string_view NextLine(std::string_view text) {
  const std::size_t end = text.find_first_of("\r\n");
  if (end == std::string_view::npos) return text;
  return text.substr(0, text.substr(end).starts_with("\r\n") ? end + 2 : end + 1);
}

bool IsBlank(std::string_view line) {
  return line.find_first_not_of(kBlanks) == std::string_view::npos;
}

/// Spreadsheets write the separator of their country; the comma counts in case of doubt.
char SeparatorOf(std::string_view text) {
  std::string_view line = NextLine(text);
  while (!line.empty() && line.find_first_not_of("\r\n ") == std::string_view::npos) {
    text.remove_prefix(line.size());
    line = NextLine(text);
  }
  std::array<std::pair<char, int>, 3> found = {{{',', 0}, {';', 0}, {'\t', 0}}};
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') quoted = !quoted;
    for (auto& [separator, count] : found) count += c == separator && !quoted ? 1 : 0;
  }
  return std::ranges::max_element(found, {}, &std::pair<char, int>::second)->first;
}

/// Some spreadsheets name the separator in a line of its own in front of the table. The length of that line
/// with its end; 0 if there is none.
std::size_t SeparatorLineLength(std::string_view text) {
  const std::string_view line = NextLine(text);
  const std::string_view rest = line.substr(std::min(line.size(), kSeparatorName.size()));
  const bool names = EqualNoCase(line.substr(0, kSeparatorName.size()), kSeparatorName) && !rest.empty() &&
                     kSeparators.find(rest.front()) != std::string_view::npos && IsBlank(rest.substr(1));
  return names ? line.size() : 0;
}

/// The parser cuts them off unless they are in quotes.
bool HasOuterBlanks(std::string_view field) {
  return !field.empty() && (kBlanks.find(field.front()) != std::string_view::npos ||
                            kBlanks.find(field.back()) != std::string_view::npos);
}

/// The library's parser. It is fed line by line, so a line ends at most one row, and nothing throws through
/// its C code.
class Parser {
 public:
  explicit Parser(char separator) {
    if (csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI) != 0) throw std::bad_alloc();
    csv_set_delim(&parser_, static_cast<unsigned char>(separator));
    csv_set_blk_size(&parser_, kBufferStep);
  }
  ~Parser() { csv_free(&parser_); }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  /// Whether the line is in order so far.
  bool Feed(std::string_view line) {
    const std::size_t taken = csv_parse(&parser_, line.data(), line.size(), TakeField, TakeRow, this);
    if (noMemory_ || csv_error(&parser_) == CSV_ENOMEM) throw std::bad_alloc();
    return taken == line.size();
  }
  /// Ends a last line that has no end of its own; returns false within quotes.
  bool Finish() { return csv_fini(&parser_, TakeField, TakeRow, this) == 0; }

  /// Whether a row has ended since the last call; then `fields` are its own.
  bool TakeEndedRow(std::vector<std::string>& fields) {
    if (!ended_) return false;
    ended_ = false;
    fields = std::exchange(fields_, {});
    return true;
  }

 private:
  static void TakeField(void* text, std::size_t length, void* parser) noexcept {
    auto& self = *static_cast<Parser*>(parser);
    if (self.fields_.size() > kMostCsvColumns) return;
    try {
      self.fields_.emplace_back(static_cast<const char*>(text), length);
    } catch (const std::bad_alloc&) {
      self.noMemory_ = true;
    }
  }
  static void TakeRow(int /*end*/, void* parser) noexcept { static_cast<Parser*>(parser)->ended_ = true; }

  csv_parser parser_{};
  std::vector<std::string> fields_;
  bool ended_ = false;
  bool noMemory_ = false;
};

/// Passes rows on and holds them to the width of the first.
class RowCheck {
 public:
  explicit RowCheck(const std::function<void(CsvRow&)>& take) : take_(take) {}

  void Take(CsvRow row) {
    if (row.fields.size() > kMostCsvColumns)
      throw TableError(row.line, "has more than " + std::to_string(kMostCsvColumns) + " fields");
    // Spreadsheets end each line with separators if some cell beside the table was once in use.
    const std::size_t least = std::max<std::size_t>(columns_, 1);
    while (row.fields.size() > least && row.fields.back().empty()) row.fields.pop_back();
    if (rows_ == 0) columns_ = row.fields.size();
    if (row.fields.size() != columns_) {
      throw TableError(row.line, "has " + std::to_string(row.fields.size()) + " fields, and the first line " +
                                     std::to_string(columns_));
    }
    if (++rows_ > kMostCsvRows)
      throw TableError(row.line, "more than " + std::to_string(kMostCsvRows) + " rows");
    take_(row);
  }

 private:
  const std::function<void(CsvRow&)>& take_;
  std::size_t columns_ = 0;
  std::size_t rows_ = 0;
};

void RequireText(std::string_view line, std::size_t number) {
  if (line.find('\0') != std::string_view::npos)
    throw TableError(number, "holds a zero byte: this is no text");
  if (!IsUtf8(line)) throw TableError(number, "is not UTF-8: save the table as CSV in UTF-8");
}

}  // namespace

TableError::TableError(std::size_t line, const std::string& reason)
    : std::runtime_error("line " + std::to_string(line) + ": " + reason) {}

void ReadCsv(std::string_view text, const std::function<void(CsvRow& row)>& take) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  const std::size_t separatorLine = SeparatorLineLength(text);
  Parser parser(separatorLine > 0 ? text[kSeparatorName.size()] : SeparatorOf(text));
  text.remove_prefix(separatorLine);
  RowCheck rows(take);
  std::size_t begin = 1;  // line of the row that is being read
  bool inRow = false;
  const auto takeEnded = [&] {
    CsvRow row{begin};
    if (!parser.TakeEndedRow(row.fields)) return false;
    rows.Take(std::move(row));
    return true;
  };
  for (std::size_t number = separatorLine > 0 ? 2 : 1; !text.empty(); ++number) {
    const std::string_view line = NextLine(text);
    text.remove_prefix(line.size());
    RequireText(line, number);
    if (!inRow) begin = number;
    if (!parser.Feed(line))
      throw TableError(number, "has a quotation mark out of place; within quotes it is written twice");
    inRow = !takeEnded() && (inRow || !IsBlank(line));
  }
  if (!parser.Finish()) throw TableError(begin, "opens a quotation mark that nothing closes");
  takeEnded();
}

std::string CsvLine(std::span<const std::string> fields, char separator) {
  std::string line;
  for (const std::string& field : fields) {
    if (&field != fields.data()) line += separator;
    const bool bare = field.find_first_of("\"\r\n") == std::string::npos &&
                      field.find(separator) == std::string::npos && !HasOuterBlanks(field);
    if (bare) {
      line += field;
    } else {
      std::string quoted(csv_write(nullptr, 0, field.data(), field.size()), '\0');
      csv_write(quoted.data(), quoted.size(), field.data(), field.size());
      line += quoted;
    }
  }
  return line + '\n';
}

}  // namespace marlinset
