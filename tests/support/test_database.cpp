#include "tests/support/test_database.h"

#include <unistd.h>

#include <atomic>
#include <filesystem>

#include "qvn/data/drivers/built_in.h"
#include "tests/support/mysql_server.h"

namespace qvn::test {
namespace {

std::string uniqueName() {
  static std::atomic<int> counter{0};
  return "qvn_t_" + std::to_string(getpid()) + "_" + std::to_string(++counter);
}

class SqliteDatabase final : public TestDatabase {
 public:
  SqliteDatabase() : folder_(std::filesystem::temp_directory_path() / uniqueName()) {
    std::filesystem::create_directory(folder_);
  }
  ~SqliteDatabase() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  [[nodiscard]] std::string connectionString() const override {
    return "Provider=SQLite;Data Source=" + (folder_ / "tienda.db").string() + ";Mode=ReadWriteCreate";
  }
  // Nothing has to outlive the machine here: a test need not wait for the disk.
  [[nodiscard]] data::ConnectionPtr connect() const override {
    auto connection = TestDatabase::connect();
    connection->Execute("PRAGMA synchronous = OFF");
    return connection;
  }

 private:
  std::filesystem::path folder_;
};

class MySqlDatabase final : public TestDatabase {
 public:
  MySqlDatabase() : name_(uniqueName()) {
    server()->Execute("CREATE DATABASE " + name_ + " CHARACTER SET utf8mb4 COLLATE utf8mb4_spanish_ci");
  }
  ~MySqlDatabase() override {
    try {
      server()->Execute("DROP DATABASE " + name_);
    } catch (const data::ProviderError&) {
      return;  // a test may have killed the server
    }
  }
  // The last of two equal names counts.
  [[nodiscard]] std::string connectionString() const override { return mysqlConnectionString() + ";DATABASE=" + name_; }

 private:
  static data::ConnectionPtr server() {
    auto connection = data::Connection::create();
    connection->Open(mysqlConnectionString());
    return connection;
  }
  std::string name_;
};

template <typename Database>
std::unique_ptr<TestDatabase> create() {
  data::registerBuiltInDrivers();
  return std::make_unique<Database>();
}

}  // namespace

const std::vector<Engine>& engines() {
  static const std::vector<Engine> kEngines = {
      {"SQLite", &create<SqliteDatabase>,
       "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n WHERE i < 0"},
      {"MySQL", &create<MySqlDatabase>, "SELECT SLEEP(20)"},
  };
  return kEngines;
}

}  // namespace qvn::test
