// What a column type of an engine gives to hosts: rows of a table of cases, and the values that they expect.
#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>

#include "tests/support/driver_session.h"

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

/// Holds each row against a table of its own; `create` are the words that make a table anew.
inline void expectTypes(data::Session& session, const std::string& create, std::span<const TypeRow> rows) {
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

}  // namespace qvn::test
