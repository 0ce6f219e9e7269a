// A stored value of the embedded engine as a Variant.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/field_type.h"

namespace qvn::data::sqlite {

inline std::string_view bytesOf(sqlite3_value* cell) {
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(cell));
  return {bytes == nullptr ? "" : bytes, static_cast<std::size_t>(sqlite3_value_bytes(cell))};
}

inline std::string_view textOf(sqlite3_value* cell) {
  // Asked for as bytes, a text stays where it lies in the page; asked for as text, it is copied to end in a NUL.
  if (sqlite3_value_encoding(cell) == SQLITE_UTF8) return bytesOf(cell);
  // In this order: the first call converts the text, the second one then tells its length in UTF-8.
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(cell));
  return {text == nullptr ? "" : text, static_cast<std::size_t>(sqlite3_value_bytes(cell))};
}

/// Reads `cell`, of a column declared as `type`, into `value`, using again the memory of a text that it holds. A value
/// that its declaration has no room for keeps its own type: the engine stores any value in any column.
void convertValue(sqlite3_value* cell, FieldType type, Variant& value);

/// The same, without a further call for the values that most rows consist of.
inline void readValue(sqlite3_value* cell, FieldType type, Variant& value) {
  switch (type) {
    case FieldType::VarWChar:
    case FieldType::WChar:
    case FieldType::LongVarWChar:
      if (sqlite3_value_type(cell) != SQLITE_TEXT) break;
      value.assignText(textOf(cell));
      return;
    case FieldType::Double:
      if (sqlite3_value_type(cell) != SQLITE_FLOAT) break;
      value = sqlite3_value_double(cell);
      return;
    case FieldType::Integer: {
      if (sqlite3_value_type(cell) != SQLITE_INTEGER) break;
      const std::int64_t number = sqlite3_value_int64(cell);
      if (number != static_cast<std::int32_t>(number)) break;
      value = static_cast<std::int32_t>(number);
      return;
    }
    default:
      break;
  }
  convertValue(cell, type, value);
}

}  // namespace qvn::data::sqlite
