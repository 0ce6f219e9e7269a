// Sessions of the driver on the test server.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "qvn/base/number_text.h"
#include "qvn/data/drivers/mysql/mysql_driver.h"
#include "tests/support/error_of.h"
#include "tests/support/mysql_server.h"

namespace qvn::test {

inline std::unique_ptr<data::Session> connectTo(const std::string& connectionString,
                                                std::chrono::seconds timeout = std::chrono::seconds(30)) {
  const data::ConnectionString parameters(connectionString);
  return data::mysqlDriver()->connect({parameters, {}, {}, {}, timeout, timeout});
}

/// Type and exact value, for comparing what no text shows: "3: 12".
inline std::string shown(const Variant& value) {
  const std::string type = std::to_string(static_cast<int>(value.type())) + ": ";
  if (value.isNull()) return type;
  if (const auto* date = value.getIf<Date>()) return type + shortestNumber(date->serial());
  return type + value.toText();
}

class MysqlTest : public testing::Test {
 protected:
  /// First value of the statement's first row.
  Variant scalar(const std::string& sql) {
    const data::StatementResult result = session_->execute(sql);
    Variant value;
    if (result.cursor == nullptr || !result.cursor->next()) {
      ADD_FAILURE() << "no row: " << sql;
      return value;
    }
    result.cursor->read(0, value);
    return value;
  }

  /// Another session of the same user.
  static std::unique_ptr<data::Session> another() { return connectTo(mysqlConnectionString()); }

  std::unique_ptr<data::Session> session_ = another();
};

/// The first column of the rows that are left.
inline std::vector<std::string> remaining(data::Cursor& cursor) {
  std::vector<std::string> values;
  for (Variant value; cursor.next();) {
    cursor.read(0, value);
    values.push_back(shown(value));
  }
  return values;
}

}  // namespace qvn::test
