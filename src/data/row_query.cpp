// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/row_query.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <variant>

#include "base/text.h"

namespace marlinset {
namespace {

RuntimeError BadQuery(std::string_view text) {
  return {kErrInternal, "Query failed: " + std::string(text)};
}

/// Iterates over the words, names and texts of a query.
class QueryText {
 public:
  explicit QueryText(std::string_view text) : whole_(text), rest_(text) {}

  bool AtEnd() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
    return rest_.empty();
  }
  bool Skip(std::string_view word) {
    if (AtEnd() || !EqualNoCase(rest_.substr(0, word.size()), word)) return false;
    rest_.remove_prefix(word.size());
    return true;
  }
  void Want(std::string_view word) {
    if (!Skip(word)) throw BadQuery(whole_);
  }
  std::string Name() {
    if (Skip("[")) return Until(']');
    const std::string_view name = rest_.substr(0, rest_.find_first_of(kBlanks));
    rest_.remove_prefix(name.size());
    if (name.empty()) throw BadQuery(whole_);
    return std::string(name);
  }
  std::string Text() {
    Want("'");
    std::string text = Until('\'');
    // A quote inside the text is doubled.
    while (rest_.starts_with('\'')) {
      rest_.remove_prefix(1);
      text += '\'' + Until('\'');
    }
    return text;
  }

 private:
  static constexpr std::string_view kBlanks = " \t\r\n";

  std::string Until(char end) {
    const std::size_t at = rest_.find(end);
    if (at == std::string_view::npos) throw BadQuery(whole_);
    std::string text(rest_.substr(0, at));
    rest_.remove_prefix(at + 1);
    return text;
  }

  std::string_view whole_;
  std::string_view rest_;
};

/// NULL sorts before numbers, numbers before texts.
bool ComesBefore(const FieldValue& a, const FieldValue& b) {
  const auto kind = [](const FieldValue& value) {
    if (std::holds_alternative<std::monostate>(value)) return 0;
    return std::holds_alternative<std::string>(value) ? 2 : 1;
  };
  if (kind(a) != kind(b)) return kind(a) < kind(b);
  if (kind(a) == 1) return DoubleOf(a) < DoubleOf(b);
  return UpperOf(TextOf(a)) < UpperOf(TextOf(b));
}

}  // namespace

RowQuery RowQuery::Parse(std::string_view text) {
  QueryText query(text);
  RowQuery result;
  query.Want("select ");
  query.Want("*");
  query.Want("from ");
  result.table = query.Name();
  if (query.Skip("where ")) {
    result.column = query.Name();
    query.Want("<>");
    result.unwanted = query.Text();
  }
  if (query.Skip("order by ")) result.order = query.Name();
  if (!query.AtEnd()) throw BadQuery(text);
  return result;
}

RowSet RowQuery::Of(RowSet set) const {
  auto& rows = set.rows;
  if (!column.empty()) {
    const std::size_t index = set.IndexOf(column);
    std::erase_if(rows, [&](const auto& row) {
      return std::holds_alternative<std::monostate>(row[index]) || EqualNoCase(TextOf(row[index]), unwanted);
    });
  }
  if (!order.empty()) {
    const std::size_t index = set.IndexOf(order);
    std::stable_sort(rows.begin(), rows.end(),
                     [&](const auto& a, const auto& b) { return ComesBefore(a[index], b[index]); });
  }
  return set;
}

}  // namespace marlinset
