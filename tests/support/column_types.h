// What an engine's column types give to hosts, and how values are written for them: tables of cases and what they
// expect.
#pragma once

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/driver_session.h"
#include "tests/support/error_of.h"

namespace qvn::test {

struct TypeRow {
  const char* why;
  std::string declaration;
  std::string sql;  // the value in a statement
  data::FieldType type;
  Variant value;
};

inline Variant decimal(std::string_view text) { return *Decimal::fromText(text); }

inline Variant moment(int year, int month, int day, TimeOfDay time = {}, double fractionOfSecond = 0) {
  const double midnight = Date::fromCivil(year, month, day).serial();
  const double fraction = (time.hour * 3600 + time.minute * 60 + time.second + fractionOfSecond) / 86400;
  return Date(midnight < 0 ? midnight - fraction : midnight + fraction);
}

inline std::string allBytes() {
  std::string bytes;
  for (int code = 0; code < 256; ++code) bytes.push_back(static_cast<char>(code));
  return bytes;
}

/// What the engines with declared types have in common.
inline const TypeRow kCommonTypes[] = {
    {"NULL of a number", "INTEGER", "NULL", data::FieldType::Integer, Null{}},
    {"smallest SMALLINT", "SMALLINT", "-32768", data::FieldType::SmallInt, std::int16_t{-32768}},
    {"smallest INTEGER", "INTEGER", "-2147483648", data::FieldType::Integer, std::numeric_limits<std::int32_t>::min()},
    {"largest INTEGER", "INTEGER", "2147483647", data::FieldType::Integer, std::numeric_limits<std::int32_t>::max()},
    {"smallest BIGINT", "BIGINT", "-9223372036854775808", data::FieldType::BigInt,
     std::numeric_limits<std::int64_t>::min()},
    {"FLOAT", "FLOAT", "-1.5e38", data::FieldType::Single, -1.5e38F},
    {"largest DOUBLE", "DOUBLE PRECISION", "1.7976931348623157e308", data::FieldType::Double, 1.7976931348623157e308},
    {"DECIMAL keeps its zeros", "DECIMAL(10,2)", "-12.30", data::FieldType::Numeric, decimal("-12.30")},
    {"DATE", "DATE", "'2012-03-07'", data::FieldType::Date, moment(2012, 3, 7)},
    {"last DATE", "DATE", "'9999-12-31'", data::FieldType::Date, moment(9999, 12, 31)},
    {"first DATE that a date value holds", "DATE", "'0100-01-01'", data::FieldType::Date, moment(100, 1, 1)},
    {"a DATE before it", "DATE", "'0099-12-31'", data::FieldType::Date, "0099-12-31"},
    {"TIME", "TIME", "'23:59:59'", data::FieldType::DbTime, Date(86399.0 / 86400)},
    {"VARCHAR keeps its blanks", "VARCHAR(20)", "'¡ñ! '", data::FieldType::VarWChar, "¡ñ! "},
    {"VARCHAR beyond the basic plane", "VARCHAR(20)", "'¡🍕!'", data::FieldType::VarWChar, "¡🍕!"},
    {"empty VARCHAR", "VARCHAR(20)", "''", data::FieldType::VarWChar, ""},
    {"BLOB", "BLOB", "x'00FF0D0A1A5C'", data::FieldType::LongVarBinary, std::string("\0\xFF\r\n\x1A\\", 6)},
};

/// Holds each of the common rows and of the engine's own against a table of its own; `create` are the words that make a
/// table anew.
inline void expectTypes(data::Session& session, const std::string& create, std::span<const TypeRow> own) {
  std::vector<TypeRow> rows(std::begin(kCommonTypes), std::end(kCommonTypes));
  rows.insert(rows.end(), own.begin(), own.end());
  for (const TypeRow& row : rows) {
    SCOPED_TRACE(row.why);
    session.execute(create + " tipos (v " + row.declaration + ")");
    session.execute("INSERT INTO tipos VALUES (" + row.sql + ")");
    const data::StatementResult result = session.execute("SELECT v FROM tipos");
    ASSERT_NE(result.cursor, nullptr);
    ASSERT_EQ(result.cursor->columns().size(), 1u);
    EXPECT_EQ(result.cursor->columns()[0].type, row.type);
    EXPECT_EQ(remaining(*result.cursor), std::vector<std::string>{shown(row.value)});
  }
}

/// "name size precision.scale" of each column.
inline std::vector<std::string> shownColumns(const data::Cursor& cursor) {
  std::vector<std::string> shown;
  for (const data::Column& column : cursor.columns()) {
    shown.push_back(column.name + " " + std::to_string(column.definedSize) + " " + std::to_string(column.precision) +
                    "." + std::to_string(column.scale));
  }
  return shown;
}

/// "table.column key auto" of each column, without what it is not; empty for an expression.
inline std::vector<std::string> shownOrigins(data::Cursor& cursor) {
  std::vector<std::string> shown;
  for (const data::ColumnOrigin& origin : cursor.origins()) {
    shown.push_back(origin.table + (origin.table.empty() ? "" : ".") + origin.column + (origin.isKey ? " key" : "") +
                    (origin.isAutoNumber ? " auto" : ""));
  }
  return shown;
}

/// A value as it stands in a statement for a column of a type.
struct LiteralRow {
  const char* why;
  Variant value;
  data::FieldType type;
  std::string expected;
};

inline void expectLiterals(const data::Session& session, std::span<const LiteralRow> rows) {
  for (const LiteralRow& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(session.literal(row.value, row.type), row.expected);
  }
  const auto refusal = [&](const Variant& value, data::FieldType type) {
    return errorNumber([&] { static_cast<void>(session.literal(value, type)); });
  };
  using Limits = std::numeric_limits<double>;
  EXPECT_EQ(refusal(Limits::infinity(), data::FieldType::Double), error_number::kOverflow);
  EXPECT_EQ(refusal(Limits::quiet_NaN(), data::FieldType::Double), error_number::kOverflow);
  EXPECT_EQ(refusal(Date(3e6), data::FieldType::Date), error_number::kInvalidCall);
  EXPECT_EQ(refusal(Array{}, data::FieldType::VarWChar), error_number::kTypeMismatch);
}

/// Each value of the one row of `table` has to find that row again as a literal of its column.
inline void expectFoundAgain(data::Session& session, const std::string& table, std::size_t columnCount) {
  const data::StatementResult result = session.execute("SELECT * FROM " + table);
  ASSERT_TRUE(result.cursor->next());
  ASSERT_EQ(result.cursor->columns().size(), columnCount);
  for (std::size_t i = 0; i < columnCount; ++i) {
    const data::Column& column = result.cursor->columns()[i];
    Variant value;
    result.cursor->read(i, value);
    const std::string condition = column.name + " = " + session.literal(value, column.type);
    SCOPED_TRACE(condition.substr(0, 80));
    EXPECT_EQ(shown(scalar(session, "SELECT COUNT(*) FROM " + table + " WHERE " + condition)), shown(std::int64_t{1}));
  }
}

}  // namespace qvn::test
