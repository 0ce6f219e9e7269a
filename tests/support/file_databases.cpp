// Databases in files of a folder that goes with them.
#include <filesystem>
#include <fstream>

#include "tests/support/databases.h"

namespace qvn::test {
namespace {

class FileDatabase : public TestDatabase {
 public:
  explicit FileDatabase(const char* extension) : folder_(std::filesystem::temp_directory_path() / uniqueName()) {
    std::filesystem::create_directory(folder_);
    file_ = (folder_ / "tienda").string() + extension;
  }
  ~FileDatabase() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

 protected:
  std::filesystem::path folder_;
  std::string file_;
};

class SqliteDatabase : public FileDatabase {
 public:
  SqliteDatabase() : FileDatabase(".db") {}
  [[nodiscard]] std::string connectionString() const override {
    return "Provider=SQLite;Data Source=" + file_ + ";Mode=ReadWriteCreate";
  }
  // Nothing has to outlive the machine here: a test need not wait for the disk. A small cache leaves rows in the file.
  [[nodiscard]] data::ConnectionPtr connect() const override {
    auto connection = TestDatabase::connect();
    connection->Execute("PRAGMA synchronous = OFF");
    connection->Execute("PRAGMA cache_size = 10");
    return connection;
  }
  // A disk that is pulled out.
  [[nodiscard]] std::function<void()> breakerOf(data::Connection& /*session*/) const override {
    return [this] { std::filesystem::resize_file(file_, 1 << 14); };
  }
};

class OdbcSqliteDatabase final : public SqliteDatabase {
 public:
  // The driver takes an empty file for a new database.
  OdbcSqliteDatabase() { std::ofstream{file_}; }
  [[nodiscard]] std::string connectionString() const override { return "Driver=SQLite3;Database=" + file_; }
};

class FirebirdDatabase final : public FileDatabase {
 public:
  FirebirdDatabase() : FileDatabase(".fdb") {}
  [[nodiscard]] std::string connectionString() const override {
    return "Provider=IbOleDb;Data Source=" + file_ + ";User ID=SYSDBA;Mode=ReadWriteCreate";
  }
  [[nodiscard]] std::function<void()> breakerOf(data::Connection& session) const override {
    return firebirdBreaker(*this, session);
  }
};

}  // namespace

std::unique_ptr<TestDatabase> sqliteDatabase() { return std::make_unique<SqliteDatabase>(); }
std::unique_ptr<TestDatabase> odbcSqliteDatabase() { return std::make_unique<OdbcSqliteDatabase>(); }
std::unique_ptr<TestDatabase> firebirdDatabase() { return std::make_unique<FirebirdDatabase>(); }

}  // namespace qvn::test
