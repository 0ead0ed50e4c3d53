// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/data_engine.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

#include "platform/runtime_error.h"
#include "platform/settings_store.h"
#include "platform/text.h"

namespace marlinset {
namespace {

/// Reads a number at the beginning of a text with a point as decimal sign, whatever the user's locale is.
bool ReadNumber(std::string_view text, double& number, bool& restIsBlank) {
  constexpr std::string_view kBlanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  if (text.starts_with('+')) text.remove_prefix(1);
  if (text.find_first_of(".0123456789") > (text.starts_with('-') ? 1U : 0U)) return false;  // "inf", "nan"
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return false;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  restIsBlank = text.find_first_not_of(kBlanks) == std::string_view::npos;
  return true;
}

std::string NumberText(double number) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(15);
  out << number;
  return out.str();
}

}  // namespace

double LeadingNumberOf(std::string_view text) {
  double number = 0;
  bool restIsBlank = false;
  return ReadNumber(text, number, restIsBlank) ? number : 0;
}

std::string TextOf(const FieldValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
  if (const auto* number = std::get_if<double>(&value)) return NumberText(*number);
  return {};
}

double DoubleOf(const FieldValue& value) {
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  if (const auto* text = std::get_if<std::string>(&value)) {
    double number = 0;
    bool restIsBlank = false;
    if (!ReadNumber(*text, number, restIsBlank) || !restIsBlank) throw TypeMismatch();
    return number;
  }
  return 0;
}

std::int16_t Int16Of(const FieldValue& value) {
  const double number = std::nearbyint(DoubleOf(value));
  if (!(number >= std::numeric_limits<std::int16_t>::min() &&
        number <= std::numeric_limits<std::int16_t>::max())) {
    throw Overflow();
  }
  return static_cast<std::int16_t>(number);
}

bool BooleanOf(const FieldValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    for (const std::string_view yes : {"True", "Yes", "On"}) {
      if (EqualNoCase(*text, yes)) return true;
    }
    return LeadingNumberOf(*text) != 0;
  }
  return DoubleOf(value) != 0;
}

int SettingNumber(const SettingsStore& settings, std::string_view key, std::string_view defaultValue) {
  const double number = std::nearbyint(LeadingNumberOf(settings.GetSetting(key, defaultValue)));
  if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max()) return 0;
  return static_cast<int>(number);
}

}  // namespace marlinset
