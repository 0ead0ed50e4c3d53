// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "core/records.h"
#include "data/data_engine.h"

namespace marlinset {

/// A column of the reference database and the record field that it feeds. The field's type determines the
/// conversion.
template <class Rec>
struct RecordColumn {
  using Field = std::variant<std::string Rec::*, std::int16_t Rec::*, double Rec::*, bool Rec::*>;
  std::string_view name;
  Field field;
};

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

/// Reads one column of the current row into its field. Throws like Recordset::Fields and the conversion, and
/// then leaves the field as it was.
template <class Rec>
void ReadColumn(const Recordset& rows, const RecordColumn<Rec>& column, Rec& record) {
  const FieldValue value = rows.Fields(column.name);
  std::visit([&](auto field) { Assign(record.*field, value); }, column.field);
}

}  // namespace marlinset
