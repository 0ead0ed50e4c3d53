// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "files/qcf_document.h"

namespace marlinset {

/// Names, in listings and JSON, of what is not a field.
inline constexpr std::string_view kIdentificationName = "identification";
inline constexpr std::string_view kLengthName = "configuration length";
inline constexpr std::string_view kTailName = "tail";

/// A value of a configuration with its name. Values of a window carry its name ("character windows / Text /
/// Vertical"), those of a parameter its class and number ("system parameters / 2.7 / Value").
struct QcfLine {
  std::string name;
  std::string text;  ///< numbers in decimal, texts in double quotes
};

/// Everything in the file, in file order: the items of the identification ("identification / title"), the
/// values of the configuration, and what does not belong to it: "configuration length" if it differs from
/// that of the fields, "tail" in hexadecimal.
std::vector<QcfLine> ListingOf(const QcfDocument& document);

/// Two hexadecimal digits for each byte.
std::string HexOfBytes(std::span<const std::uint8_t> bytes);

/// A parameter's value as a number: 16 bits with their sign; a value that does not fit into them is
/// unchanged.
std::int64_t ShownParameterValue(std::int64_t stored);
/// The reverse.
std::int64_t StoredOfShown(std::int64_t shown);

enum class QcfDifference { kEqual, kChanged, kOnlyLeft, kOnlyRight };

struct QcfComparison {
  QcfDifference difference;
  std::string name;
  std::string left;   ///< empty if only the right one has it
  std::string right;  ///< empty if only the left one has it
};

/// The values of two configurations side by side, in the order of the left one, followed by what only the
/// right one has. Windows and parameters are paired by name and number, whatever their order.
std::vector<QcfComparison> Compare(const QcfDocument& left, const QcfDocument& right);

}  // namespace marlinset
