// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "files/qcf_fields.h"

namespace marlinset {

struct QcfEntry;
/// Fields with their values, in file order.
using QcfRecord = std::vector<QcfEntry>;
/// A number for kByte, kU32 and kValue, a text in UTF-8 for kText, the records for kRecords. A kValue is its
/// four bytes as one unsigned number.
using QcfValue = std::variant<std::int64_t, std::string, std::vector<QcfRecord>>;

struct QcfEntry {
  const QcfField* field;
  QcfValue value;
};

/// Everything in a configuration file, so that it can be written again byte for byte.
struct QcfDocument {
  std::vector<std::uint8_t> identification;  ///< the identification block, without its length
  QcfRecord entries;                         ///< from the format version to the parameters
  /// The length that the file gives for its configuration block, if it differs from that of the entries.
  std::optional<std::uint32_t> configurationLength;
  std::vector<std::uint8_t> tail;  ///< bytes after the last parameter, left from a longer file
};

/// A parameter's value as stored in the file: negative numbers in two's complement of 16 bits.
constexpr std::int64_t StoredParameterValue(std::int16_t value) {
  return static_cast<std::uint16_t>(value);
}

/// A parameter's value as a load reads it from the file. Existing files and units rely on it: each byte is a
/// group of hexadecimal digits without leading zeros, so that 00 00 01 05 is &H0015 = 21. Throws Overflow
/// above 32767, which negative numbers always exceed.
std::int16_t LoadedParameterValue(std::int64_t stored);

/// The format version of a document, from the fourth byte of its first field.
int FormatVersionOf(const QcfDocument& document);

}  // namespace marlinset
