// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/parameter_filter.h"

#include <QRegularExpression>
#include <algorithm>

namespace marlinset {
namespace {

bool MatchesWord(const ParameterTexts& row, const QString& word) {
  static const QRegularExpression kNumbers(QStringLiteral("^(\\d+)\\.(\\d*)$"));
  if (row.description.contains(word, Qt::CaseInsensitive)) return true;
  if (const auto numbers = kNumbers.match(word); numbers.hasMatch()) {
    return row.classNumber == numbers.captured(1) &&
           (numbers.captured(2).isEmpty() || row.parameter == numbers.captured(2));
  }
  return row.classNumber == word || row.parameter == word || row.value.startsWith(word, Qt::CaseInsensitive);
}

}  // namespace

ParameterFilter::ParameterFilter(const QString& text)
    : words_(text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts)) {}

bool ParameterFilter::Matches(const ParameterTexts& row) const {
  return std::ranges::all_of(words_, [&](const QString& word) { return MatchesWord(row, word); });
}

}  // namespace marlinset
