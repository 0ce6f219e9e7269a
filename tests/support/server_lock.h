// One test at a time on a database whose name is fixed, because dumps hold it.
#pragma once

#include <chrono>
#include <string>

#include "qvn/data/connection.h"
#include "tests/support/mysql_server.h"

namespace qvn::test {

/// Waits until no other process holds the lock of this name on the MySQL server; it is held as long as the connection.
inline data::ConnectionPtr holdServerLock(const std::string& name) {
  constexpr int kLongestWait = 300;
  auto connection = data::Connection::create();
  connection->setCommandTimeout(std::chrono::seconds(kLongestWait + 10));
  connection->Open(mysqlConnectionString());
  connection->Execute("SELECT GET_LOCK('" + name + "', " + std::to_string(kLongestWait) + ")");
  return connection;
}

}  // namespace qvn::test
