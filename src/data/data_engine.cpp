// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/data_engine.h"

#include <locale>
#include <optional>
#include <sstream>

#include "base/numbers.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace marlinset {
namespace {

std::string NumberText(double number) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(15);
  out << number;
  return out.str();
}

}  // namespace

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
    const std::optional<LeadingNumber> number = ReadLeadingNumber(*text);
    if (!number || !number->aloneInText) throw TypeMismatch();
    return number->value;
  }
  return 0;
}

std::int16_t Int16Of(const FieldValue& value) {
  return Int16Of(DoubleOf(value));
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

}  // namespace marlinset
