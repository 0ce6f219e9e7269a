// Sessions of the driver on the test server.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "qvn/data/drivers/mysql/mysql_driver.h"
#include "tests/support/driver_session.h"
#include "tests/support/error_of.h"
#include "tests/support/failures.h"
#include "tests/support/mysql_server.h"

namespace qvn::test {

inline std::unique_ptr<data::Session> connectTo(const std::string& connectionString,
                                                std::chrono::seconds timeout = std::chrono::seconds(30)) {
  const data::ConnectionString parameters(connectionString);
  return data::mysqlDriver()->connect({parameters, {}, {}, {}, timeout, timeout});
}

/// Of the test server.
inline int mysqlPort() { return std::stoi(*data::ConnectionString(mysqlTcpConnectionString()).value({"PORT"})); }

class MysqlTest : public testing::Test {
 protected:
  Variant scalar(const std::string& sql) { return test::scalar(*session_, sql); }

  /// Another session of the same user.
  static std::unique_ptr<data::Session> another() { return connectTo(mysqlConnectionString()); }

  /// Waits for the turn of this test among those that use a table of that name; it ends with the session.
  static std::unique_ptr<data::Session> turnOn(const std::string& table) {
    auto turn = connectTo(mysqlConnectionString(), std::chrono::seconds(310));
    test::scalar(*turn, "SELECT GET_LOCK('" + table + "', 300)");
    return turn;
  }

  std::unique_ptr<data::Session> session_ = another();
};

}  // namespace qvn::test
