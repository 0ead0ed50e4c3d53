// SPDX-License-Identifier: GPL-3.0-or-later
#include <charconv>

#include "base/text.h"
#include "unit/unit_model.h"

namespace marlinset {
namespace {

constexpr std::size_t kTextLength = 8;
constexpr std::size_t kVersionAt = kTextLength + 1;
constexpr std::size_t kVersionEnd = kVersionAt + 6;
constexpr std::size_t kMarkerAt = kVersionEnd + 1;
constexpr std::size_t kBuildAt = kMarkerAt + 2;
constexpr std::size_t kBuildEnd = kBuildAt + 6;

// Six hexadecimal digits after a blank.
bool ReadThree(std::string_view text, std::size_t begin, std::array<std::uint8_t, 3>& out) {
  if (text[begin - 1] != ' ') return false;
  for (auto& byte : out) {
    const char* digits = text.data() + begin;
    const auto [end, error] = std::from_chars(digits, digits + 2, byte, 16);
    if (error != std::errc{} || end != digits + 2) return false;
    begin += 2;
  }
  return true;
}

}  // namespace

std::optional<UnitFirmware> ParseFirmware(std::string_view text) {
  UnitFirmware firmware;
  firmware.text = LeftOf(text, kTextLength);
  if (LengthOf(text) <= kTextLength) return firmware;
  // After the name only ASCII is valid; the name itself may have more bytes than characters.
  const std::string rest = std::string(kTextLength, ' ') + std::string(text.substr(firmware.text.size()));
  if (rest.size() != kVersionEnd && rest.size() != kBuildEnd) return std::nullopt;
  if (!ReadThree(rest, kVersionAt, firmware.version)) return std::nullopt;
  if (rest.size() == kVersionEnd) return firmware;
  firmware.marker = rest[kMarkerAt];
  if (rest[kMarkerAt - 1] != ' ' || !ReadThree(rest, kBuildAt, firmware.build)) return std::nullopt;
  return firmware;
}

}  // namespace marlinset
