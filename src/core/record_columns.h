// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "core/records.h"
#include "data/data_engine.h"

namespace marlinset {

/// A column of the reference database and the field of a record that it feeds. The field's type says how the
/// column's value is converted.
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

/// Reads one column of the current row into its field. Failures as of Recordset::Fields and of the
/// conversion; the field keeps its value then.
template <class Rec>
void ReadColumn(const Recordset& rows, const RecordColumn<Rec>& column, Rec& record) {
  const FieldValue value = rows.Fields(column.name);
  std::visit([&](auto field) { Assign(record.*field, value); }, column.field);
}

}  // namespace marlinset
