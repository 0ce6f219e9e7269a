// ActualizaSaldo beside a raw loop that issues the same six statements on the engine's own client library. Every call
// changes what is stored: an update that writes the value already there would be skipped by the engines.
#include <benchmark/benchmark.h>
#include <mysql.h>
#include <sqlite3.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "bench/support/mysql_peer.h"
#include "bench/support/peer_report.h"
#include "qvn/base/number_text.h"
#include "qvn/data/drivers/built_in.h"
#include "qvn/ledger/receivables.h"

namespace {

using qvn::data::Connection;
using qvn::data::ConnectionPtr;

constexpr int kDocuments = 2000;
constexpr int kCustomers = 200;

[[noreturn]] void fail(const char* what) {
  std::fprintf(stderr, "bench_receivables: %s\n", what);
  std::exit(1);
}

/// One value of one statement on a client library, and statements without rows.
class RawSession {
 public:
  virtual ~RawSession() = default;
  /// Runs the statement; the first row's column, or "" for NULL and for no row.
  virtual std::string value(const std::string& sql, unsigned column) = 0;
  virtual void run(const std::string& sql) = 0;
};

class RawSqlite final : public RawSession {
 public:
  RawSqlite() {
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(":memory:", &database_, flags, nullptr) != SQLITE_OK) fail("cannot open a database in memory");
  }
  ~RawSqlite() override { sqlite3_close(database_); }
  std::string value(const std::string& sql, unsigned column) override {
    sqlite3_stmt* statement = prepare(sql);
    std::string text;
    if (sqlite3_step(statement) == SQLITE_ROW) {
      const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, static_cast<int>(column)));
      if (bytes != nullptr) text = bytes;
    }
    sqlite3_finalize(statement);
    return text;
  }
  void run(const std::string& sql) override {
    sqlite3_stmt* statement = prepare(sql);
    if (sqlite3_step(statement) == SQLITE_ERROR) fail(sqlite3_errmsg(database_));
    sqlite3_finalize(statement);
  }

 private:
  sqlite3_stmt* prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_, sql.data(), static_cast<int>(sql.size()), &statement, nullptr) != SQLITE_OK) {
      fail(sqlite3_errmsg(database_));
    }
    return statement;
  }
  sqlite3* database_ = nullptr;
};

class RawMysql final : public RawSession {
 public:
  RawMysql() : server_(qvn::bench::connectMysqlPeer()) {
    if (server_ == nullptr) fail("cannot connect to the server");
    // A database of its own: what one side wrote must not be what the other one finds stored already.
    run("CREATE DATABASE IF NOT EXISTS qvn_bench_raw");
    run("USE qvn_bench_raw");
  }
  ~RawMysql() override {
    run("DROP DATABASE qvn_bench_raw");
    mysql_close(server_);
  }
  std::string value(const std::string& sql, unsigned column) override {
    run(sql);
    MYSQL_RES* result = mysql_use_result(server_);
    std::string text;
    if (MYSQL_ROW row = mysql_fetch_row(result)) {
      if (row[column] != nullptr) text = row[column];
    }
    mysql_free_result(result);
    return text;
  }
  void run(const std::string& sql) override {
    if (mysql_real_query(server_, sql.data(), sql.size()) != 0) fail(mysql_error(server_));
  }

 private:
  MYSQL* server_;
};

void updateBalanceRaw(RawSession& session, int number) {
  const std::string document = std::to_string(number);
  const auto cents = [](const std::string& text) {
    return std::nearbyint(std::strtod(text.c_str(), nullptr) * 100) / 100;
  };
  const double charges = cents(
      session.value("SELECT sum(importe) As cargos FROM cobdet WHERE cargo_ab = 'C' AND cobranza = " + document, 0));
  const double credits = cents(
      session.value("SELECT sum(importe) As abonos FROM cobdet WHERE cargo_ab = 'A' AND cobranza = " + document, 0));
  const double balance = charges - credits;
  session.run("UPDATE cobranza SET saldo = " + qvn::generalNumber(balance) + ",estado = '" +
              (balance == 0 ? "S" : "P") + "' WHERE cobranza = " + document);
  const std::string customer = session.value("SELECT * FROM cobranza WHERE cobranza = " + document, 1);
  const double total = std::strtod(
      session.value("SELECT sum(saldo * tip_cam) As S FROM cobranza WHERE cliente = '" + customer + "'", 0).c_str(),
      nullptr);
  session.run("UPDATE clients SET saldo = " + qvn::generalNumber(total) + " WHERE CLIENTE = '" + customer + "'");
}

template <typename Run>
void dropShop(Run run) {
  for (const char* table : {"clients", "cobranza", "cobdet"}) run("DROP TABLE IF EXISTS " + std::string(table));
}

template <typename Run>
void createShop(Run run) {
  dropShop(run);
  run("CREATE TABLE clients (cliente VARCHAR(20) PRIMARY KEY, saldo DOUBLE)");
  run("CREATE TABLE cobranza (cobranza INTEGER PRIMARY KEY, cliente VARCHAR(20), saldo DOUBLE, tip_cam DOUBLE, "
      "estado CHAR(1))");
  run("CREATE TABLE cobdet (id INTEGER PRIMARY KEY, cobranza INTEGER, cargo_ab CHAR(1), importe DOUBLE)");
  run("CREATE INDEX cobdet_cobranza ON cobdet (cobranza)");
  run("CREATE INDEX cobranza_cliente ON cobranza (cliente)");
  run("BEGIN");
  for (int i = 0; i < kCustomers; ++i) run("INSERT INTO clients VALUES ('C" + std::to_string(i) + "', 0)");
  for (int i = 0; i < kDocuments; ++i) {
    const std::string id = std::to_string(i);
    run("INSERT INTO cobranza VALUES (" + id + ",'C" + std::to_string(i % kCustomers) + "',0,1,'P')");
    run("INSERT INTO cobdet VALUES (" + std::to_string(3 * i) + "," + id + ",'C',1500.50),(" +
        std::to_string(3 * i + 1) + "," + id + ",'A',500.25),(" + std::to_string(3 * i + 2) + "," + id + ",'A',120)");
  }
  run("COMMIT");
}

// Calls `update` with one document after the other; after the last one all charges grow, outside the time taken.
template <typename Update, typename Run>
void registerUpdates(const char* name, Update update, Run run) {
  benchmark::RegisterBenchmark(name,
                               [update, run, next = 0](benchmark::State& state) mutable {
                                 for (auto _ : state) {
                                   if (next == kDocuments) {
                                     state.PauseTiming();
                                     run("UPDATE cobdet SET importe = importe + 1 WHERE cargo_ab = 'C'");
                                     next = 0;
                                     state.ResumeTiming();
                                   }
                                   update(next++);
                                 }
                               })
      ->Unit(benchmark::kMicrosecond)
      ->MinTime(0.3);
}

ConnectionPtr registerQvn(const char* name, const std::string& connectionString) {
  const ConnectionPtr connection = Connection::create();
  connection->Open(connectionString);
  const auto run = [connection](const std::string& sql) { connection->Execute(sql); };
  createShop(run);
  auto ambiente = std::make_shared<qvn::host::SimpleAmbiente>(connection);
  auto query = std::make_shared<qvn::host::QueryPtr>();
  registerUpdates(
      name, [=](int document) { qvn::ledger::ActualizaSaldo(document, ambiente, *query); }, run);
  return connection;
}

void registerRaw(const char* name, const std::shared_ptr<RawSession>& session) {
  const auto run = [session](const std::string& sql) { session->run(sql); };
  createShop(run);
  registerUpdates(
      name, [session](int document) { updateBalanceRaw(*session, document); }, run);
}

}  // namespace

int main(int argc, char** argv) {
  qvn::data::registerBuiltInDrivers();
  registerQvn("ActualizaSaldo_sqlite/qvn", "Provider=SQLite;Data Source=:memory:");
  registerRaw("ActualizaSaldo_sqlite/raw", std::make_shared<RawSqlite>());
  const ConnectionPtr mysql = registerQvn("ActualizaSaldo_mysql/qvn", qvn::bench::mysqlConnectionString());
  registerRaw("ActualizaSaldo_mysql/raw", std::make_shared<RawMysql>());
  const int status = qvn::bench::runBesidePeers(argc, argv);
  dropShop([&](const std::string& sql) { mysql->Execute(sql); });
  return status;
}
