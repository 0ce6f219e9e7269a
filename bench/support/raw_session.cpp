#include "bench/support/raw_session.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

#include "bench/support/mysql_peer.h"

namespace qvn::bench {
namespace {

[[noreturn]] void fail(const char* what, const std::string& sql) {
  std::fprintf(stderr, "%s: %s\n", what, sql.c_str());
  std::exit(1);
}

class RawSqlite final : public RawSession {
 public:
  RawSqlite() {
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(":memory:", &database_, flags, nullptr) != SQLITE_OK) fail("cannot open", ":memory:");
  }
  RawSqlite(const RawSqlite&) = delete;
  RawSqlite& operator=(const RawSqlite&) = delete;
  ~RawSqlite() override { sqlite3_close(database_); }

  void run(const std::string& sql) override {
    sqlite3_stmt* statement = nullptr;
    const int size = static_cast<int>(sql.size());
    if (sqlite3_prepare_v2(database_, sql.data(), size, &statement, nullptr) != SQLITE_OK) {
      fail(sqlite3_errmsg(database_), sql);
    }
    int status = sqlite3_step(statement);
    for (; status == SQLITE_ROW; status = sqlite3_step(statement)) {
      benchmark::DoNotOptimize(sqlite3_column_text(statement, 0));
    }
    if (status != SQLITE_DONE) fail(sqlite3_errmsg(database_), sql);
    sqlite3_finalize(statement);
  }

 private:
  sqlite3* database_ = nullptr;
};

class RawMysql final : public RawSession {
 public:
  RawMysql() : server_(connectMysqlPeer()) {
    if (server_ == nullptr) fail("cannot connect", "QVN_TEST_MYSQL");
  }
  RawMysql(const RawMysql&) = delete;
  RawMysql& operator=(const RawMysql&) = delete;
  ~RawMysql() override { mysql_close(server_); }

  void run(const std::string& sql) override {
    if (mysql_real_query(server_, sql.data(), sql.size()) != 0) fail(mysql_error(server_), sql);
    MYSQL_RES* result = mysql_use_result(server_);
    if (result == nullptr) return;
    for (MYSQL_ROW row = mysql_fetch_row(result); row != nullptr; row = mysql_fetch_row(result)) {
      benchmark::DoNotOptimize(row[0]);
    }
    mysql_free_result(result);
  }

 private:
  MYSQL* server_;
};

}  // namespace

std::unique_ptr<RawSession> openRawSqlite() { return std::make_unique<RawSqlite>(); }
std::unique_ptr<RawSession> openRawMysql() { return std::make_unique<RawMysql>(); }

}  // namespace qvn::bench
