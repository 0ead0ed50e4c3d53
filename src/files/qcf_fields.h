// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "controls/control.h"

namespace marlinset {

// The layout of a configuration file, in one table: writer, reader, listing, comparison and JSON walk it.
// docs/qcf-format.md describes it in words.

/// How a field is encoded in the file. All numbers are big-endian.
enum class QcfEncoding {
  kByte,     ///< one unsigned byte
  kU32,      ///< four bytes, unsigned
  kText,     ///< U32 number of characters, then one byte of code page 1252 for each
  kValue,    ///< a parameter's value, four bytes; reading and writing differ
  kRecords,  ///< U32 number of records, then the records; reading fails for 0
};

/// What a load does with a field.
enum class QcfUse {
  kVersion,
  kOperatingMode,
  kCombo,        ///< looked up in the box
  kFontSize,     ///< looked up, then sets the vertical step of the windows
  kSource,       ///< old name translated, then looked up
  kSourceOfBox,  ///< old name translated for this box, then looked up
  kVitcOption,   ///< 1 to 3: number of VITC lines, 0: none chosen
  kInserter,     ///< 1: characters on
  kVitcLine,     ///< adjusted if outside the range of the video standard
  kPlain,        ///< set as it is
  kWindows,
  kParameters,
  kPartOfRecord,
};

/// The parts of a parameter's record in file order.
enum ParameterPart : std::size_t { kClassPart, kNumberPart, kDescriptionPart, kValuePart };

/// Highest format version; files of version 1 lack the fields that are newer.
inline constexpr int kQcfVersion = 2;

struct QcfField {
  std::string_view name;
  QcfEncoding encoding = QcfEncoding::kByte;
  QcfUse use = QcfUse::kPartOfRecord;
  std::string_view control = {};  ///< for a record's field: the array, with the record's number as index
  int index = kNoIndex;
  int since = 1;                  ///< first format version that has the field
  std::string_view missing = {};  ///< what the operator is told if the box does not offer the text
  int fallback = kNoIndex;        ///< the element whose first entry is then selected
  bool identifies = false;        ///< says which window or parameter a record is for
  std::span<const QcfField> record = {};
};

/// The fields of the configuration block in file order.
std::span<const QcfField> QcfFields();

/// The field with this use, which is used once.
const QcfField& QcfFieldOf(QcfUse use);

/// Whether a field is a part of each record in this list, kWindows or kParameters.
bool IsPartOf(QcfUse list, const QcfField& field);

}  // namespace marlinset
