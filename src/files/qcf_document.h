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
/// Of kByte, kU32 and kValue a number, of kText a text in UTF-8, of kRecords the records. A kValue is the
/// four bytes as one unsigned number.
using QcfValue = std::variant<std::int64_t, std::string, std::vector<QcfRecord>>;

struct QcfEntry {
  const QcfField* field;
  QcfValue value;
};

/// All that stands in a configuration file, so that it can be written again byte by byte.
struct QcfDocument {
  std::vector<std::uint8_t> identification;  ///< the identification block, without its length
  QcfRecord entries;                         ///< from the format version to the parameters
  /// The length that the file gives its configuration block, when it is not that of the entries.
  std::optional<std::uint32_t> configurationLength;
  std::vector<std::uint8_t> tail;  ///< bytes behind the last parameter: of a longer file written over
};

/// A parameter's value as the file has it: negative numbers in two's complement of 16 bits.
constexpr std::int64_t StoredParameterValue(std::int16_t value) {
  return static_cast<std::uint16_t>(value);
}

/// A parameter's value as a load takes it from the file. Existing files and units live with it: each byte is
/// one group of hexadecimal digits without leading zeros, so that 00 00 01 05 is &H0015 = 21. Failure 6 above
/// 32767, which negative numbers always are.
std::int16_t LoadedParameterValue(std::int64_t stored);

/// The format version of a document or a record's file, from the fourth byte of its first field.
int FormatVersionOf(const QcfDocument& document);

}  // namespace marlinset
