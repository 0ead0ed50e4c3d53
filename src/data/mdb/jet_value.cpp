// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/mdb/jet_value.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace marlinset {
namespace {

/// Size in bytes of a number of this type, 0 for other types.
int SizeOf(int kind) {
  switch (kind) {
    case MDB_BYTE:
      return 1;
    case MDB_INT:
      return 2;
    case MDB_LONGINT:
    case MDB_FLOAT:
      return 4;
    case MDB_DOUBLE:
      return 8;
    default:
      return 0;
  }
}

std::string JetText(const JetFile& file, const MdbField& field) {
  if (field.siz == 0) return {};
  // Stored with one byte for each character, if that is enough, which becomes two in UTF-8, or with two
  // bytes, which become three.
  std::string text(static_cast<std::size_t>(field.siz) * 3 + 1, '\0');
  const int length = mdb_unicode2ascii(file.Handle(), static_cast<const char*>(field.value),
                                       static_cast<std::size_t>(field.siz), text.data(), text.size());
  file.Check(length >= 0 && static_cast<std::size_t>(length) < text.size(), "a text is damaged");
  text.resize(static_cast<std::size_t>(length));
  return text;
}

}  // namespace

FieldValue NullOf(const MdbColumn& column) {
  if (column.col_type == MDB_BOOL) return std::int64_t{0};
  return {};
}

FieldValue JetValue(const JetFile& file, const MdbColumn& column, const MdbField& field) {
  file.Check(field.siz >= SizeOf(column.col_type), "a number is not whole");
  switch (column.col_type) {
    case MDB_BOOL:
      return std::int64_t{1};  // the mark "not NULL" is the value
    case MDB_BYTE:
      return std::int64_t{mdb_get_byte(field.value, 0)};
    case MDB_INT:
      return std::int64_t{static_cast<std::int16_t>(mdb_get_int16(field.value, 0))};
    case MDB_LONGINT:
      return std::int64_t{static_cast<std::int32_t>(mdb_get_int32(field.value, 0))};
    case MDB_FLOAT:
      return static_cast<double>(mdb_get_single(field.value, 0));
    case MDB_DOUBLE:
      return mdb_get_double(field.value, 0);
    case MDB_TEXT:
      return JetText(file, field);
    default:
      return {};
  }
}

}  // namespace marlinset
