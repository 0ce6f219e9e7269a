// Sessions of the driver on a database of the test's own, which the engine opens inside this process.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <memory>
#include <string>

#include "qvn/data/drivers/firebird/firebird_driver.h"
#include "tests/support/driver_session.h"
#include "tests/support/error_of.h"
#include "tests/support/failures.h"
#include "tests/support/scratch_folder.h"

namespace qvn::test {

inline std::unique_ptr<data::Session> connectTo(const std::string& connectionString,
                                                std::chrono::seconds timeout = std::chrono::seconds(30)) {
  const data::ConnectionString parameters(connectionString);
  return data::firebirdDriver()->connect({parameters, {}, {}, {}, std::chrono::seconds(5), timeout});
}

class FirebirdTest : public testing::Test {
 protected:
  Variant scalar(const std::string& sql) { return test::scalar(*session_, sql); }

  /// Another session on the same database.
  [[nodiscard]] std::unique_ptr<data::Session> another(std::chrono::seconds timeout = std::chrono::seconds(30)) const {
    return connectTo(connectionString_, timeout);
  }

  ScratchFolder folder_;
  std::string connectionString_ =
      "Provider=IbOleDb;User ID=SYSDBA;Mode=ReadWriteCreate;Data Source=" + folder_.path("tienda.fdb");
  std::unique_ptr<data::Session> session_ = another();
};

}  // namespace qvn::test
