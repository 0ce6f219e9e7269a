// Sessions of the driver on the engines of the tests.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <string>

#include "qvn/data/drivers/odbc/odbc_driver.h"
#include "tests/support/driver_session.h"
#include "tests/support/error_of.h"
#include "tests/support/failures.h"
#include "tests/support/mysql_server.h"
#include "tests/support/scratch_folder.h"

namespace qvn::test {

inline std::unique_ptr<data::Session> connectTo(const std::string& connectionString,
                                                std::chrono::seconds timeout = std::chrono::seconds(30)) {
  const data::ConnectionString parameters(connectionString);
  return data::odbcDriver()->connect({parameters, {}, {}, {}, std::chrono::seconds(5), timeout});
}

/// An empty database in a file; the driver takes an empty file for one.
inline std::string sqliteConnectionString(const ScratchFolder& folder) {
  const std::string file = folder.path("tienda.db");
  std::ofstream(file, std::ios::app).flush();
  return "Driver=SQLite3;Database=" + file;
}

/// The MySQL test server through its ODBC driver.
inline std::string mariaDbConnectionString() {
  const std::string native = mysqlConnectionString();
  return "Driver=MariaDB Unicode" + native.substr(native.find(';'));
}

}  // namespace qvn::test
