// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "core/records.h"
#include "platform/data_engine.h"
#include "platform/runtime_error.h"

namespace marlinset {

/// A column of the reference database and the field of a record that it feeds. The field's type says how the
/// column's value is converted.
template <class Rec>
struct RecordColumn {
  using Field = std::variant<std::string Rec::*, std::int16_t Rec::*, double Rec::*, bool Rec::*>;
  std::string_view name;
  Field field;
};

/// The columns of a record in the order in which a loader reads them. One column may feed several fields.
template <class Rec>
std::span<const RecordColumn<Rec>> ColumnsOf();

template <>
std::span<const RecordColumn<VideoStandardRec>> ColumnsOf();
template <>
std::span<const RecordColumn<CharMaxPosRec>> ColumnsOf();
template <>
std::span<const RecordColumn<CharStyleRec>> ColumnsOf();
template <>
std::span<const RecordColumn<CharSizeRec>> ColumnsOf();
template <>
std::span<const RecordColumn<CodedItemRec>> ColumnsOf();
template <>
std::span<const RecordColumn<DownConvProcessRec>> ColumnsOf();
template <>
std::span<const RecordColumn<OrderedCodeRec>> ColumnsOf();
template <>
std::span<const RecordColumn<CodeSourceRec>> ColumnsOf();
template <>
std::span<const RecordColumn<TimeCodeAssignmentRec>> ColumnsOf();
template <>
std::span<const RecordColumn<OperatingModeRec>> ColumnsOf();
template <>
std::span<const RecordColumn<HelpMessageRec>> ColumnsOf();
template <>
std::span<const RecordColumn<CharWindowRec>> ColumnsOf();
template <>
std::span<const RecordColumn<SystemParameterRec>> ColumnsOf();

inline void Assign(std::string& field, const FieldValue& value) {
  field = TextOf(value);
}
inline void Assign(std::int16_t& field, const FieldValue& value) {
  field = Int16Of(value);
}
inline void Assign(double& field, const FieldValue& value) {
  field = DoubleOf(value);
}
inline void Assign(bool& field, const FieldValue& value) {
  field = BooleanOf(value);
}

/// The current row as a record. A column that is not there, as in a database of another age, or that cannot
/// be converted leaves its field empty, 0 or False.
template <class Rec>
Rec ReadRecord(const Recordset& rows) {
  Rec record;
  for (const RecordColumn<Rec>& column : ColumnsOf<Rec>()) {
    try {
      const FieldValue value = rows.Fields(column.name);
      std::visit([&](auto field) { Assign(record.*field, value); }, column.field);
    } catch (const RuntimeError&) {
      continue;
    }
  }
  return record;
}

}  // namespace marlinset
