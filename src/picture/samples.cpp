// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/samples.h"

#include <algorithm>
#include <cstddef>

#include "base/text.h"

namespace marlinset {
namespace {

struct Sample {
  std::string_view words;  ///< the window's name contains them; the first match counts
  std::string_view text;
};
constexpr Sample kSamples[] = {{"Timecode", "01:23:45:12"},
                               {"Duration", "00:00:12:08"},
                               {"User Bits", "12 34 56 78"},
                               {"Footage", "0123+04.12"},
                               {"KeyKode", "KJ23 1234 5678+09"},
                               {"Camera Roll", "REEL 014"},
                               {"Sound Roll", "SND  007"},
                               {"Scene", "SC 12A T 3"},
                               {"PullDown", "2:3A"},
                               {"Event Number", "EV 012"},
                               {"Debug", "DEBUG 00 01 02 03 04 05 06 07 08"}};
constexpr std::string_view kSymbol = "V";
constexpr std::string_view kFieldDigit = "1";

std::string OwnText(const SampleParts& parts) {
  if (!parts.message.empty()) return parts.message;
  for (const Sample& sample : kSamples) {
    if (parts.name.find(sample.words) != std::string_view::npos) return std::string(sample.text);
  }
  return UpperOf(parts.name);
}

std::string Fitted(std::string_view text, int length) {
  const auto wanted = static_cast<std::size_t>(std::max(length, 0));
  std::string fitted = LeftOf(text, wanted);
  fitted.append(wanted - LengthOf(fitted), ' ');
  return fitted;
}

}  // namespace

std::string SampleOf(const SampleParts& parts, int columns) {
  const int symbol = std::clamp(parts.symbol, 0, columns);
  const int field = std::clamp(parts.field, 0, columns - symbol);
  std::string digit;
  if (field > 0) digit = std::string(static_cast<std::size_t>(field - 1), ' ') + std::string(kFieldDigit);
  return Fitted(kSymbol, symbol) + Fitted(OwnText(parts), columns - symbol - field) + digit;
}

}  // namespace marlinset
