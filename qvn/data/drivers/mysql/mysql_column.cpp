#include "qvn/data/drivers/mysql/mysql_column.h"

#include <algorithm>
#include <array>
#include <functional>

#include "qvn/data/sql_text.h"

namespace qvn::data::mysql {
namespace {

// The character set number of columns that hold bytes.
constexpr unsigned kBinaryCharset = 63;
// The driver's connections speak utf8mb4, and the engine counts lengths in its bytes.
constexpr unsigned kBytesPerCharacter = 4;

// `other` stands for UNSIGNED numbers and for texts of the binary character set.
struct TypeRule {
  enum_field_types type;
  ColumnKind plain;
  ColumnKind other;
};

constexpr ColumnKind kNumeric{FieldType::Numeric, ValueKind::Decimal};
constexpr ColumnKind kInteger{FieldType::Integer, ValueKind::Long};
constexpr ColumnKind kUnsignedInteger{FieldType::UnsignedInt, ValueKind::LongLong};
constexpr ColumnKind kDate{FieldType::Date, ValueKind::Date};
constexpr ColumnKind kTimeStamp{FieldType::DbTimeStamp, ValueKind::Date};
constexpr ColumnKind kTime{FieldType::DbTime, ValueKind::Time};
constexpr ColumnKind kVarText{FieldType::VarWChar, ValueKind::Text};
constexpr ColumnKind kVarBytes{FieldType::VarBinary, ValueKind::Text};
constexpr ColumnKind kLongText{FieldType::LongVarWChar, ValueKind::Text};
constexpr ColumnKind kLongBytes{FieldType::LongVarBinary, ValueKind::Text};

// Source: enum_field_types of mysql.h, in its order. The engine sends ENUM and SET as MYSQL_TYPE_STRING with a flag,
// every TEXT and BLOB as MYSQL_TYPE_BLOB.
// clang-format off
constexpr auto kTypeRules = std::to_array<TypeRule>({
    {MYSQL_TYPE_DECIMAL,     kNumeric, kNumeric},
    {MYSQL_TYPE_TINY,        {FieldType::TinyInt, ValueKind::Integer}, {FieldType::UnsignedTinyInt, ValueKind::Integer}},
    {MYSQL_TYPE_SHORT,       {FieldType::SmallInt, ValueKind::Integer}, {FieldType::UnsignedSmallInt, ValueKind::Long}},
    {MYSQL_TYPE_LONG,        kInteger, kUnsignedInteger},
    {MYSQL_TYPE_FLOAT,       {FieldType::Single, ValueKind::Single}, {FieldType::Single, ValueKind::Single}},
    {MYSQL_TYPE_DOUBLE,      {FieldType::Double, ValueKind::Double}, {FieldType::Double, ValueKind::Double}},
    {MYSQL_TYPE_NULL,        {FieldType::VarWChar, ValueKind::Null}, {FieldType::VarWChar, ValueKind::Null}},
    {MYSQL_TYPE_TIMESTAMP,   kTimeStamp, kTimeStamp},
    {MYSQL_TYPE_LONGLONG,    {FieldType::BigInt, ValueKind::LongLong},
                             {FieldType::UnsignedBigInt, ValueKind::Decimal}},
    {MYSQL_TYPE_INT24,       kInteger, kUnsignedInteger},
    {MYSQL_TYPE_DATE,        kDate, kDate},
    {MYSQL_TYPE_TIME,        kTime, kTime},
    {MYSQL_TYPE_DATETIME,    kTimeStamp, kTimeStamp},
    {MYSQL_TYPE_YEAR,        {FieldType::SmallInt, ValueKind::Integer}, {FieldType::SmallInt, ValueKind::Integer}},
    {MYSQL_TYPE_NEWDATE,     kDate, kDate},
    {MYSQL_TYPE_VARCHAR,     kVarText, kVarBytes},
    {MYSQL_TYPE_BIT,         {FieldType::UnsignedBigInt, ValueKind::Bits}, {FieldType::UnsignedBigInt, ValueKind::Bits}},
    {MYSQL_TYPE_JSON,        kLongText, kLongText},
    {MYSQL_TYPE_NEWDECIMAL,  kNumeric, kNumeric},
    {MYSQL_TYPE_ENUM,        kVarText, kVarBytes},
    {MYSQL_TYPE_SET,         kVarText, kVarBytes},
    {MYSQL_TYPE_TINY_BLOB,   kLongText, kLongBytes},
    {MYSQL_TYPE_MEDIUM_BLOB, kLongText, kLongBytes},
    {MYSQL_TYPE_LONG_BLOB,   kLongText, kLongBytes},
    {MYSQL_TYPE_BLOB,        kLongText, kLongBytes},
    {MYSQL_TYPE_VAR_STRING,  kVarText, kVarBytes},
    {MYSQL_TYPE_STRING,      {FieldType::WChar, ValueKind::Text}, {FieldType::Binary, ValueKind::Text}},
    {MYSQL_TYPE_GEOMETRY,    kLongBytes, kLongBytes},
});
// clang-format on
static_assert(std::ranges::is_sorted(kTypeRules, std::less_equal{}, &TypeRule::type));

bool has(const MYSQL_FIELD& field, unsigned flag) { return (field.flags & flag) != 0; }

// Digits of a DECIMAL: its width without the point and the sign.
int decimalDigits(const MYSQL_FIELD& field) {
  const unsigned long extra = (field.decimals > 0 ? 1U : 0U) + (has(field, UNSIGNED_FLAG) ? 0U : 1U);
  return static_cast<int>(field.length > extra ? field.length - extra : 0);
}

std::string backquoted(const char* name, unsigned length) { return doubledQuotes({name, length}, '`'); }

}  // namespace

ColumnKind columnKind(const MYSQL_FIELD& field) {
  if (field.type == MYSQL_TYPE_BIT && field.length == 1) return {FieldType::Boolean, ValueKind::Boolean};
  if (has(field, ENUM_FLAG | SET_FLAG)) return kVarText;
  const auto* rule = std::ranges::lower_bound(kTypeRules, field.type, {}, &TypeRule::type);
  if (rule == kTypeRules.end() || rule->type != field.type) return kVarText;
  const bool isOther =
      rule->plain.kind == ValueKind::Text ? field.charsetnr == kBinaryCharset : has(field, UNSIGNED_FLAG);
  return isOther ? rule->other : rule->plain;
}

Column describeColumn(const MYSQL_FIELD& field) {
  const ColumnKind kind = columnKind(field);
  Column column;
  column.name.assign(field.name, field.name_length);
  column.type = kind.type;
  if (kind.kind == ValueKind::Text) {
    column.definedSize = static_cast<std::int64_t>(field.length / (isBinary(kind.type) ? 1 : kBytesPerCharacter));
  } else if (kind.type == FieldType::Numeric) {
    column.precision = decimalDigits(field);
    column.scale = static_cast<int>(field.decimals);
  }
  return column;
}

ColumnOrigin columnOrigin(const MYSQL_FIELD& field) {
  // The engine leaves the schema out for its own temporary tables.
  if (field.db_length == 0 || field.org_table_length == 0 || field.org_name_length == 0) return {};
  ColumnOrigin origin;
  origin.table = backquoted(field.db, field.db_length) + "." + backquoted(field.org_table, field.org_table_length);
  origin.column = backquoted(field.org_name, field.org_name_length);
  origin.isKey = has(field, PRI_KEY_FLAG);
  origin.isAutoNumber = has(field, AUTO_INCREMENT_FLAG);
  return origin;
}

}  // namespace qvn::data::mysql
