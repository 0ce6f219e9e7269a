// A command on the demonstration's shop, on each engine that the shop can be made on.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/apps/run_program.h"
#include "tests/support/test_database.h"

namespace qvn::test {

/// The values of the rows, a blank between two of them.
inline std::string valuesOf(const data::ConnectionPtr& connection, const std::string& sql) {
  std::string values;
  for (const auto rows = connection->Execute(sql); !rows->Eof(); rows->MoveNext()) {
    for (std::size_t i = 0; i < rows->FieldCount(); ++i) {
      values.append(values.empty() ? "" : " ").append(rows->Fields(i).Value().toText());
    }
  }
  return values;
}

class DemoShop : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    database_ = GetParam().create();
    ASSERT_EQ(runQvn({"demo", "-c", database_->connectionString()}).status, 0);
  }

  void execute(const std::string& sql) const { database_->connect()->Execute(sql); }

  [[nodiscard]] std::string valuesOf(const std::string& sql) const { return test::valuesOf(database_->connect(), sql); }
  [[nodiscard]] double numberOf(const std::string& sql) const { return std::stod(valuesOf(sql)); }

  [[nodiscard]] Call call(const std::vector<std::string>& arguments, const std::string& locale = "C") const {
    return {.arguments = arguments,
            .environment = {"QVN_CONEXION=" + database_->connectionString(), "LC_ALL=" + locale}};
  }

  std::unique_ptr<TestDatabase> database_;
};

}  // namespace qvn::test
