// What a session or a cursor of a driver gives, for comparing it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "qvn/base/number_text.h"
#include "qvn/data/connection_string.h"
#include "qvn/data/driver.h"

namespace qvn::test {

/// Type and exact value, for comparing what no text shows: "3: 12".
inline std::string shown(const Variant& value) {
  const std::string type = std::to_string(static_cast<int>(value.type())) + ": ";
  if (value.isNull()) return type;
  if (const auto* date = value.getIf<Date>()) return type + shortestNumber(date->serial());
  return type + value.toText();
}

/// The first column of the rows that are left.
inline std::vector<std::string> remaining(data::Cursor& cursor) {
  std::vector<std::string> values;
  for (Variant value; cursor.next();) {
    cursor.read(0, value);
    values.push_back(shown(value));
  }
  return values;
}

/// First value of the statement's first row.
inline Variant scalar(data::Session& session, const std::string& sql) {
  const data::StatementResult result = session.execute(sql);
  Variant value;
  if (result.cursor == nullptr || !result.cursor->next()) {
    ADD_FAILURE() << "no row: " << sql;
    return value;
  }
  result.cursor->read(0, value);
  return value;
}

/// Whether the driver takes each of the connection strings.
inline void expectServed(const data::Driver& driver, const std::vector<std::pair<const char*, bool>>& rows) {
  for (const auto& [text, isServed] : rows) EXPECT_EQ(driver.accepts(data::ConnectionString(text)), isServed) << text;
}

}  // namespace qvn::test
