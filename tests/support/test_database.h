// A database of a test's own on each engine that the suite runs against.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "qvn/data/connection.h"

namespace qvn::test {

/// An empty database, removed with the object.
class TestDatabase {
 public:
  virtual ~TestDatabase() = default;
  [[nodiscard]] virtual std::string connectionString() const = 0;

  /// A new session on it.
  [[nodiscard]] virtual data::ConnectionPtr connect() const {
    auto connection = data::Connection::create();
    connection->Open(connectionString());
    return connection;
  }
};

/// An engine of the suite.
struct Engine {
  std::string name;  // "SQLite" or "MySQL"
  std::unique_ptr<TestDatabase> (*create)();
  std::string slowStatement;  // runs for many seconds without giving a row

  [[nodiscard]] bool isMySql() const { return name == "MySQL"; }
};

inline void PrintTo(const Engine& engine, std::ostream* out) { *out << engine.name; }

/// All of them. A server engine fails in create(), with a text that says how to start its server, when the environment
/// names none.
const std::vector<Engine>& engines();

/// The engine as a test parameter's name.
inline std::string engineName(const testing::TestParamInfo<Engine>& parameter) { return parameter.param.name; }

}  // namespace qvn::test
