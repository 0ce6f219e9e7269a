// Rows for workbooks, from a database in memory.
#pragma once

#include <string>

#include "qvn/data/connection.h"
#include "qvn/data/drivers/built_in.h"

namespace qvn::test {

/// A forward-only recordset, which streams.
inline data::RecordsetPtr rowsOf(const std::string& sql) {
  data::registerBuiltInDrivers();
  auto rows = std::make_shared<data::Recordset>();
  rows->setCursorLocation(data::CursorLocation::Server);
  rows->Open(sql, "Provider=SQLite;Data Source=:memory:");
  return rows;
}

/// n from 1 to `count`.
inline data::RecordsetPtr numbersTo(int count, const std::string& fields = "n") {
  return rowsOf("WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c WHERE n < " + std::to_string(count) +
                ") SELECT " + fields + " FROM c");
}

}  // namespace qvn::test
