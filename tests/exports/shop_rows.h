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

/// Rows that end in an error behind the first: a number without its opposite, which the engine finds out only then.
inline data::RecordsetPtr failingRows() {
  return rowsOf("SELECT 1 AS n UNION ALL SELECT abs(-9223372036854775807 - 1)");
}

/// The field without rows.
inline data::RecordsetPtr noRows() { return rowsOf("SELECT 1 AS n WHERE 0"); }

}  // namespace qvn::test
