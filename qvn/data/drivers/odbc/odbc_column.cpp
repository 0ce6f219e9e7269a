#include "qvn/data/drivers/odbc/odbc_column.h"

#include <sqlext.h>

#include <algorithm>
#include <array>
#include <string>

#include "qvn/base/letter_case.h"

namespace qvn::data::odbc {
namespace {

// Longer values do not take part in blocks of rows.
constexpr SQLULEN kLongestInBlock = 4000;
constexpr SQLULEN kBytesPerCharacter = 4;
// A decimal number of 65 digits with sign and point, or a moment with its fraction, and the NUL behind it.
constexpr SQLULEN kShortText = 72;

constexpr SQLSMALLINT kSqlServerTime = -154;
constexpr SQLSMALLINT kSqlServerMomentWithZone = -155;

struct TypeRule {
  SQLSMALLINT type;
  FieldType field;
  SQLSMALLINT transfer;
  SQLULEN size;  // 0: of the column's own size
};

// Source: the type codes of ODBC 3; the negative ones below -150 are SQL Server's own.
constexpr auto kTypeRules = std::to_array<TypeRule>({
    {SQL_BIT, FieldType::Boolean, SQL_C_BIT, 1},
    {SQL_TINYINT, FieldType::UnsignedTinyInt, SQL_C_SSHORT, 2},
    {SQL_SMALLINT, FieldType::SmallInt, SQL_C_SSHORT, 2},
    {SQL_INTEGER, FieldType::Integer, SQL_C_SLONG, 4},
    {SQL_BIGINT, FieldType::BigInt, SQL_C_SBIGINT, 8},
    {SQL_REAL, FieldType::Single, SQL_C_FLOAT, 4},
    {SQL_FLOAT, FieldType::Double, SQL_C_DOUBLE, 8},
    {SQL_DOUBLE, FieldType::Double, SQL_C_DOUBLE, 8},
    {SQL_DECIMAL, FieldType::Numeric, SQL_C_CHAR, kShortText},
    {SQL_NUMERIC, FieldType::Numeric, SQL_C_CHAR, kShortText},
    {SQL_CHAR, FieldType::WChar, SQL_C_CHAR, 0},
    {SQL_WCHAR, FieldType::WChar, SQL_C_CHAR, 0},
    {SQL_VARCHAR, FieldType::VarWChar, SQL_C_CHAR, 0},
    {SQL_WVARCHAR, FieldType::VarWChar, SQL_C_CHAR, 0},
    {SQL_LONGVARCHAR, FieldType::LongVarWChar, SQL_C_CHAR, 0},
    {SQL_WLONGVARCHAR, FieldType::LongVarWChar, SQL_C_CHAR, 0},
    {SQL_BINARY, FieldType::Binary, SQL_C_BINARY, 0},
    {SQL_VARBINARY, FieldType::VarBinary, SQL_C_BINARY, 0},
    {SQL_LONGVARBINARY, FieldType::LongVarBinary, SQL_C_BINARY, 0},
    {SQL_TYPE_DATE, FieldType::Date, SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)},
    {SQL_TYPE_TIMESTAMP, FieldType::DbTimeStamp, SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)},
    {SQL_TYPE_TIME, FieldType::DbTime, SQL_C_CHAR, kShortText},
    {kSqlServerTime, FieldType::DbTime, SQL_C_CHAR, kShortText},
    {kSqlServerMomentWithZone, FieldType::VarWChar, SQL_C_CHAR, kShortText},
    {SQL_GUID, FieldType::WChar, SQL_C_CHAR, kShortText},
});
constexpr TypeRule kOtherType{0, FieldType::LongVarWChar, SQL_C_CHAR, 0};

SQLLEN number(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT what) {
  SQLLEN value = 0;
  SQLColAttribute(statement, column, what, nullptr, 0, nullptr, &value);
  return value;
}

std::string text(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT what) {
  std::array<char, 512> value{};
  SQLSMALLINT length = 0;
  SQLColAttribute(statement, column, what, value.data(), value.size(), &length, nullptr);
  return value.data();
}

SQLULEN blockSize(const TypeRule& rule, SQLULEN columnSize) {
  if (rule.size != 0) return rule.size;
  const bool isLong = columnSize == 0 || columnSize > kLongestInBlock || rule.field == FieldType::LongVarWChar ||
                      rule.field == FieldType::LongVarBinary;
  if (isLong) return 0;
  return rule.transfer == SQL_C_BINARY ? columnSize : columnSize * kBytesPerCharacter + 1;
}

// What an unbounded column of a type is.
FieldType longType(FieldType type) {
  if (type == FieldType::VarWChar) return FieldType::LongVarWChar;
  return type == FieldType::VarBinary ? FieldType::LongVarBinary : type;
}

// Whole numbers without a sign take the next wider type, as their values do.
void widen(DescribedColumn& described, SQLSMALLINT type) {
  described.transfer.isUnsigned = true;
  switch (type) {
    case SQL_SMALLINT:
      described.column.type = FieldType::UnsignedSmallInt;
      described.transfer = {SQL_C_SLONG, 4, true};
      break;
    case SQL_INTEGER:
      described.column.type = FieldType::UnsignedInt;
      described.transfer = {SQL_C_SBIGINT, 8, true};
      break;
    case SQL_BIGINT:
      described.column.type = FieldType::UnsignedBigInt;
      described.transfer = {SQL_C_CHAR, kShortText, true};
      break;
    default:
      break;
  }
}

// SQLite's driver gives the type of a text for these; the declared word tells. An expression has none and comes as
// "varchar", like a column declared so in small letters.
void applyDeclaredWord(SQLHSTMT statement, SQLUSMALLINT index, DescribedColumn& described) {
  const std::string declared = text(statement, index, SQL_DESC_TYPE_NAME);
  described.transfer.isUntyped = declared == "varchar";
  const std::string word = upperCase(declared);
  if (word.starts_with("DECIMAL") || word.starts_with("NUMERIC")) {
    described.column.type = FieldType::Numeric;
    described.column.precision = static_cast<int>(number(statement, index, SQL_DESC_LENGTH));
    described.column.scale = static_cast<int>(number(statement, index, SQL_DESC_PRECISION));
    described.column.definedSize = 0;
    described.transfer = {SQL_C_CHAR, kShortText};
  } else if (word.find("BLOB") != std::string::npos || word.find("BINARY") != std::string::npos) {
    described.column.type = FieldType::LongVarBinary;
    described.transfer = {SQL_C_BINARY, 0};
  }
}

DescribedColumn describe(SQLHSTMT statement, SQLUSMALLINT index, EngineKind engine) {
  std::array<SQLCHAR, 512> name{};
  SQLSMALLINT nameLength = 0;
  SQLSMALLINT type = 0;
  SQLULEN size = 0;
  SQLSMALLINT decimals = 0;
  SQLSMALLINT nullable = 0;
  SQLDescribeCol(statement, index, name.data(), name.size(), &nameLength, &type, &size, &decimals, &nullable);
  const auto* found = std::ranges::find(kTypeRules, type, &TypeRule::type);
  const TypeRule& rule = found == kTypeRules.end() ? kOtherType : *found;
  DescribedColumn described;
  described.column.name = reinterpret_cast<const char*>(name.data());
  described.column.type = rule.field;
  described.transfer = {rule.transfer, blockSize(rule, size)};
  if (rule.field == FieldType::Numeric) {
    described.column.precision = static_cast<int>(size);
    described.column.scale = decimals;
  } else if (rule.size == 0 && described.transfer.size != 0) {
    described.column.definedSize = static_cast<std::int64_t>(size);
  }
  const bool isWhole = type == SQL_SMALLINT || type == SQL_INTEGER || type == SQL_BIGINT || type == SQL_TINYINT;
  if (described.transfer.size == 0 && rule.size == 0) described.column.type = longType(rule.field);
  if (isWhole && number(statement, index, SQL_DESC_UNSIGNED) == SQL_TRUE) {
    widen(described, type);
  } else if (type == SQL_TINYINT) {
    described.column.type = FieldType::TinyInt;
  }
  if (engine == EngineKind::Sqlite) applyDeclaredWord(statement, index, described);
  // That driver hands over texts and nothing else.
  if (engine == EngineKind::Access) described.transfer = {SQL_C_CHAR, 0};
  if (engine == EngineKind::SqlServer && rule.field == FieldType::Numeric &&
      upperCase(text(statement, index, SQL_DESC_TYPE_NAME)).ends_with("MONEY")) {
    described.column.type = FieldType::Currency;
  }
  return described;
}

}  // namespace

std::vector<DescribedColumn> describeColumns(SQLHSTMT statement, EngineKind engine) {
  SQLSMALLINT count = 0;
  SQLNumResultCols(statement, &count);
  std::vector<DescribedColumn> columns;
  columns.reserve(static_cast<std::size_t>(count));
  for (SQLSMALLINT i = 1; i <= count; ++i) {
    columns.push_back(describe(statement, static_cast<SQLUSMALLINT>(i), engine));
  }
  return columns;
}

}  // namespace qvn::data::odbc
