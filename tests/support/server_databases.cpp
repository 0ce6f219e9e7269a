// Databases on the servers that scripts/test-servers starts.
#include <filesystem>
#include <system_error>

#include "qvn/data/connection_string.h"
#include "qvn/data/provider_error.h"
#include "tests/support/databases.h"
#include "tests/support/mysql_server.h"

namespace qvn::test {
namespace {

data::ConnectionPtr connectTo(const std::string& connectionString) {
  auto connection = data::Connection::create();
  connection->Open(connectionString);
  return connection;
}

// Made and removed by statements of the server's administrator.
class ServerDatabase : public TestDatabase {
 public:
  ServerDatabase(std::string administrator, const std::string& create, std::string session, std::string kill)
      : administrator_(std::move(administrator)), session_(std::move(session)), kill_(std::move(kill)) {
    connectTo(administrator_)->Execute("CREATE DATABASE " + name_ + create);
  }
  ~ServerDatabase() override {
    try {
      connectTo(administrator_)->Execute("DROP DATABASE " + name_);
    } catch (const data::ProviderError&) {
      return;  // a test may have taken the server away
    }
  }
  // The last of two equal names counts.
  [[nodiscard]] std::string connectionString() const override { return administrator_ + ";DATABASE=" + name_; }
  [[nodiscard]] std::function<void()> breakerOf(data::Connection& session) const override {
    const std::string kill = kill_ + session.Execute(session_)->Fields(0).Value().toText();
    return [this, kill] { connectTo(administrator_)->Execute(kill); };
  }

 private:
  std::string name_ = uniqueName();
  std::string administrator_;
  std::string session_;  // statement that gives the session's number
  std::string kill_;     // beginning of the statement that ends a session by its number
};

constexpr const char* kUnicode = " CHARACTER SET utf8mb4 COLLATE utf8mb4_spanish_ci";

std::unique_ptr<TestDatabase> onMariaDb(std::string administrator) {
  return std::make_unique<ServerDatabase>(std::move(administrator), kUnicode, "SELECT CONNECTION_ID()", "KILL ");
}

std::string quoted(const data::ConnectionString& from, std::string_view name) {
  std::string value = from.value({name}).value_or("");
  for (std::size_t at = 0; (at = value.find('}', at)) != std::string::npos; at += 2) value.insert(at, "}");
  return "{" + value + "}";
}

class FirebirdServerDatabase final : public TestDatabase {
 public:
  FirebirdServerDatabase() { static_cast<void>(TestDatabase::connect()); }
  ~FirebirdServerDatabase() override {
    std::error_code ignored;
    std::filesystem::remove(file(), ignored);
  }
  [[nodiscard]] std::string connectionString() const override {
    const std::string server = serverVariable("QVN_TEST_FIREBIRD");
    const data::ConnectionString parts(server);
    const std::string source = parts.value({"Data Source"}).value_or("");
    return server + ";Data Source=" + source.substr(0, source.find(':') + 1) + file() + ";Mode=ReadWriteCreate";
  }
  [[nodiscard]] std::function<void()> breakerOf(data::Connection& session) const override {
    return firebirdBreaker(*this, session);
  }

 private:
  [[nodiscard]] std::string file() const { return serverVariable("QVN_TEST_FIREBIRD_DIR") + "/" + name_ + ".fdb"; }
  std::string name_ = uniqueName();
};

}  // namespace

std::unique_ptr<TestDatabase> mysqlDatabase() { return onMariaDb(mysqlConnectionString()); }

std::unique_ptr<TestDatabase> odbcMariaDbDatabase() {
  const std::string server = mysqlConnectionString();
  const data::ConnectionString native(server);
  return onMariaDb("Driver=MariaDB Unicode;SOCKET=" + quoted(native, "SOCKET") + ";UID=" + quoted(native, "UID") +
                   ";PWD=" + quoted(native, "PWD"));
}

std::unique_ptr<TestDatabase> firebirdServerDatabase() { return std::make_unique<FirebirdServerDatabase>(); }

std::unique_ptr<TestDatabase> tdsDatabase() {
  return std::make_unique<ServerDatabase>(serverVariable("QVN_TEST_TDS"), "", "SELECT @@SPID", "KILL ");
}

}  // namespace qvn::test
