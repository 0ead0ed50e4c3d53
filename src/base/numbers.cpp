// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/runtime_error.h"

namespace marlinset {

std::optional<LeadingNumber> ReadLeadingNumber(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  if (text.starts_with('+')) text.remove_prefix(1);
  if (text.find_first_of(".0123456789") > (text.starts_with('-') ? 1U : 0U)) return {};  // "inf", "nan"
  LeadingNumber number;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number.value);
  if (error != std::errc()) return {};
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  number.aloneInText = text.find_first_not_of(kBlanks) == std::string_view::npos;
  return number;
}

double LeadingNumberOf(std::string_view text) {
  const std::optional<LeadingNumber> number = ReadLeadingNumber(text);
  return number ? number->value : 0;
}

std::int16_t Int16Of(double number) {
  const double whole = std::nearbyint(number);
  if (!(whole >= std::numeric_limits<std::int16_t>::min() &&
        whole <= std::numeric_limits<std::int16_t>::max())) {
    throw Overflow();
  }
  return static_cast<std::int16_t>(whole);
}

}  // namespace marlinset
