#include "qvn/data/drivers/firebird/firebird_column.h"

#include <algorithm>
#include <array>

#include "qvn/data/drivers/firebird/firebird_error.h"

namespace qvn::data::firebird {
namespace {

// Numbers of character sets. Source: the engine's table RDB$CHARACTER_SETS.
constexpr unsigned kOctets = 1;
constexpr unsigned kUnicodeFss = 3;
constexpr unsigned kUtf8 = 4;
constexpr int kTextBlob = 1;

struct TypeRule {
  unsigned type;
  FieldType field;
  ValueKind kind;
  FieldType otherField;  // of a NUMERIC, of bytes instead of text
  ValueKind otherKind;
  int precision;  // of the NUMERIC
};

// clang-format off
constexpr auto kTypeRules = std::to_array<TypeRule>({
    {SQL_VARYING,   FieldType::VarWChar, ValueKind::Varying, FieldType::VarBinary, ValueKind::Varying, 0},
    {SQL_TEXT,      FieldType::WChar, ValueKind::FixedText, FieldType::Binary, ValueKind::FixedBytes, 0},
    {SQL_DOUBLE,    FieldType::Double, ValueKind::Double, FieldType::Double, ValueKind::Double, 0},
    {SQL_FLOAT,     FieldType::Single, ValueKind::Single, FieldType::Single, ValueKind::Single, 0},
    {SQL_LONG,      FieldType::Integer, ValueKind::Long, FieldType::Numeric, ValueKind::Scaled32, 9},
    {SQL_SHORT,     FieldType::SmallInt, ValueKind::Integer, FieldType::Numeric, ValueKind::Scaled16, 4},
    {SQL_TIMESTAMP, FieldType::DbTimeStamp, ValueKind::TimeStamp, FieldType::DbTimeStamp, ValueKind::TimeStamp, 0},
    {SQL_BLOB,      FieldType::LongVarWChar, ValueKind::Blob, FieldType::LongVarBinary, ValueKind::Blob, 0},
    {SQL_TYPE_TIME, FieldType::DbTime, ValueKind::Time, FieldType::DbTime, ValueKind::Time, 0},
    {SQL_TYPE_DATE, FieldType::Date, ValueKind::Date, FieldType::Date, ValueKind::Date, 0},
    {SQL_INT64,     FieldType::BigInt, ValueKind::LongLong, FieldType::Numeric, ValueKind::Scaled64, 18},
    {SQL_BOOLEAN,   FieldType::Boolean, ValueKind::Boolean, FieldType::Boolean, ValueKind::Boolean, 0},
});
// clang-format on

unsigned bytesPerCharacter(unsigned charset) {
  switch (charset) {
    case kUtf8:
      return 4;
    case kUnicodeFss:
      return 3;
    default:
      return 1;
  }
}

// What the library tells of one column.
struct Described {
  unsigned type;
  int subType;
  int scale;
  unsigned charset;
  unsigned length;
};

bool isOther(const Described& from, const TypeRule& rule) {
  switch (rule.field) {
    case FieldType::LongVarWChar:
      return from.subType != kTextBlob;
    case FieldType::VarWChar:
    case FieldType::WChar:
      return from.charset == kOctets;
    default:
      // A NUMERIC without decimals is known by its subtype.
      return from.scale < 0 || from.subType != 0;
  }
}

const TypeRule& ruleFor(unsigned type, std::string_view column) {
  const auto* rule = std::ranges::find(kTypeRules, type, &TypeRule::type);
  if (rule != kTypeRules.end()) return *rule;
  throw ownError(provider_number::kNotSupported, "HYC00",
                 "La columna «" + std::string(column) + "» es de un tipo (" + std::to_string(type) +
                     ") que esta biblioteca cliente de Firebird no conoce; conviértala con CAST en la sentencia");
}

void describe(const Described& from, Column& column, Cell& cell) {
  const TypeRule& rule = ruleFor(from.type, column.name);
  const bool other = isOther(from, rule);
  column.type = other ? rule.otherField : rule.field;
  cell.kind = other ? rule.otherKind : rule.kind;
  cell.byteLength = from.length;
  cell.scale = -from.scale;
  if (column.type == FieldType::Numeric) {
    column.precision = rule.precision;
    column.scale = cell.scale;
  } else if (cell.kind == ValueKind::FixedText || cell.kind == ValueKind::FixedBytes ||
             cell.kind == ValueKind::Varying) {
    const unsigned characters = from.length / bytesPerCharacter(from.charset);
    column.definedSize = characters;
    cell.characters = characters;
  }
}

}  // namespace

RowShape rowShape(FirebirdLink& link, Firebird::IMessageMetadata& metadata) {
  RowShape shape;
  auto* const status = link.status();
  const unsigned count = metadata.getCount(status);
  link.check();
  shape.columns.resize(count);
  shape.cells.resize(count);
  for (unsigned i = 0; i < count; ++i) {
    Cell& cell = shape.cells[i];
    shape.columns[i].name = metadata.getAlias(status, i);
    cell.offset = metadata.getOffset(status, i);
    cell.nullOffset = metadata.getNullOffset(status, i);
    describe({.type = metadata.getType(status, i) & ~1U,
              .subType = metadata.getSubType(status, i),
              .scale = metadata.getScale(status, i),
              .charset = metadata.getCharSet(status, i),
              .length = metadata.getLength(status, i)},
             shape.columns[i], cell);
  }
  shape.messageLength = metadata.getMessageLength(status);
  link.check();
  return shape;
}

}  // namespace qvn::data::firebird
