// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace marlinset {

/// The bytes of a text such as "02 03 0F 00 35 B9".
inline std::vector<std::uint8_t> FromHex(std::string_view text) {
  std::istringstream words{std::string(text)};
  std::vector<std::uint8_t> bytes;
  for (unsigned byte = 0; words >> std::hex >> byte;) bytes.push_back(static_cast<std::uint8_t>(byte));
  return bytes;
}

/// Bytes as such a text, so that a test that fails shows them readably.
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
