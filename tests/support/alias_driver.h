// Other engines' connection strings answered by the embedded engine, so that statement texts can be seen per dialect.
#pragma once

#include <memory>
#include <string>

#include "qvn/data/connection.h"
#include "qvn/data/driver_registry.h"
#include "qvn/data/drivers/sqlite/sqlite_driver.h"

namespace qvn::test {

/// Serves every connection string whose provider begins with "Alias-", from a database in memory.
class AliasDriver final : public data::Driver {
 public:
  [[nodiscard]] std::string_view name() const override { return "Alias"; }
  [[nodiscard]] bool accepts(const data::ConnectionString& parameters) const override {
    return parameters.driverName().starts_with("Alias-");
  }
  [[nodiscard]] std::unique_ptr<data::Session> connect(const data::ConnectRequest& /*request*/) const override {
    const data::ConnectionString memory("Provider=SQLite;Data Source=:memory:");
    return data::sqliteDriver()->connect({memory, {}, {}, {}});
  }
};

/// An open connection whose connection string holds `marker`.
inline data::ConnectionPtr connectionOfDialect(const std::string& marker) {
  data::registerDriver(std::make_shared<AliasDriver>());
  auto connection = data::Connection::create();
  connection->Open("Provider=Alias-" + marker + ";Server=tienda");
  return connection;
}

}  // namespace qvn::test
