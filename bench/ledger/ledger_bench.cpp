// Every method of the ledger beside a raw loop that issues the very same statements on the engine's client library: a
// round of the method is recorded once from its connection, and the loop replays it on rows of its own. SQLite in
// memory, and the MySQL server when the environment names one.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/ledger/ledger_methods.h"
#include "bench/support/mysql_peer.h"
#include "bench/support/peer_report.h"
#include "bench/support/raw_session.h"
#include "qvn/data/drivers/built_in.h"

namespace {

using namespace qvn::bench;
using qvn::data::Connection;
using qvn::data::ConnectionPtr;
using Calls = std::vector<std::vector<std::string>>;  // the statements of each call

struct Engine {
  const char* name;
  std::string connectionString;
  std::unique_ptr<RawSession> (*openRaw)();
  bool isServer;  // sessions share its databases, so each side makes one of its own
};

/// One of the two that are compared.
class Side {
 public:
  virtual ~Side() = default;
  virtual void call(int number) = 0;
  virtual void run(const std::string& sql) = 0;

 protected:
  void build(const Shop& shop, const std::string& database) {
    if (!database.empty()) {
      for (const char* sql : {"DROP DATABASE IF EXISTS ", "CREATE DATABASE ", "USE "}) run(sql + database);
    }
    for (const std::string& sql : shop.create) run(sql);
  }
  void drop(const std::string& database) {
    if (database.empty()) return;
    run("UNLOCK TABLES");  // a drawn counter leaves its table locked
    run("DROP DATABASE " + database);
  }
};

std::string databaseOf(const Engine& engine, const LedgerMethod& method, const char* who) {
  return engine.isServer ? std::string("qvn_bench_") + method.name + "_" + who : std::string();
}

ConnectionPtr connect(const Engine& engine) {
  ConnectionPtr connection = Connection::create();
  connection->Open(engine.connectionString);
  return connection;
}

class LibrarySide final : public Side {
 public:
  LibrarySide(const Engine& engine, const LedgerMethod& method, const char* who)
      : method_(method), database_(databaseOf(engine, method, who)), station_(connect(engine)) {
    build(method.shop(), database_);
  }
  LibrarySide(const LibrarySide&) = delete;
  LibrarySide& operator=(const LibrarySide&) = delete;
  ~LibrarySide() override { drop(database_); }
  void call(int number) override { method_.call(station_, number); }
  void run(const std::string& sql) override { station_.connection->Execute(sql); }

  Calls record() {
    Calls calls(kCalls);
    for (int i = 0; i < kCalls; ++i) {
      std::vector<std::string>& statements = calls[static_cast<std::size_t>(i)];
      station_.connection->setStatementObserver([&](std::string_view sql) { statements.emplace_back(sql); });
      call(i);
    }
    station_.connection->setStatementObserver(nullptr);
    return calls;
  }

 private:
  const LedgerMethod& method_;
  std::string database_;
  Station station_;
};

class RawSide final : public Side {
 public:
  RawSide(const Engine& engine, const LedgerMethod& method)
      : calls_(LibrarySide(engine, method, "recorded").record()),
        alwaysFails_(method.alwaysFails),
        database_(databaseOf(engine, method, "raw")),
        session_(engine.openRaw()) {
    build(method.shop(), database_);
  }
  RawSide(const RawSide&) = delete;
  RawSide& operator=(const RawSide&) = delete;
  ~RawSide() override { drop(database_); }
  void call(int number) override {
    for (const std::string& sql : calls_[static_cast<std::size_t>(number)]) session_->run(sql);
    if (alwaysFails_) fail();
  }
  void run(const std::string& sql) override { session_->run(sql); }

 private:
  static void fail() {
    try {
      throw std::runtime_error("El registro no se puede cambiar");
    } catch (const std::runtime_error& error) {
      benchmark::DoNotOptimize(error.what());
    }
  }

  Calls calls_;
  bool alwaysFails_;
  std::string database_;
  std::unique_ptr<RawSession> session_;
};

// Calls with one number after the other; after a round its rows are brought back, outside the time taken. The side is
// made when its first turn comes: a filter keeps the others from being made.
void registerSide(const std::string& name, const Shop& shop, std::function<std::unique_ptr<Side>()> make) {
  const auto turn = [&shop, make = std::move(make), side = std::shared_ptr<Side>(),
                     next = 0](benchmark::State& state) mutable {
    if (!side) side = make();
    for (auto _ : state) {
      if (next == kCalls) {
        state.PauseTiming();
        for (const std::string& sql : shop.restore) side->run(sql);
        next = 0;
        state.ResumeTiming();
      }
      side->call(next++);
    }
  };
  benchmark::RegisterBenchmark(name.c_str(), turn)->Unit(benchmark::kMicrosecond)->MinTime(0.1)->UseRealTime();
}

void registerMethods(const Engine& engine) {
  for (const LedgerMethod& method : ledgerMethods()) {
    const std::string group = std::string(method.name) + "_" + engine.name;
    registerSide(group + "/qvn", method.shop(), [&] { return std::make_unique<LibrarySide>(engine, method, "qvn"); });
    registerSide(group + "/raw", method.shop(), [&] { return std::make_unique<RawSide>(engine, method); });
  }
}

}  // namespace

int main(int argc, char** argv) {
  qvn::data::registerBuiltInDrivers();
  const Engine sqlite{"sqlite", "Provider=SQLite;Data Source=:memory:", &openRawSqlite, false};
  registerMethods(sqlite);
  std::unique_ptr<Engine> mysql;
  if (std::getenv("QVN_TEST_MYSQL") != nullptr) {
    mysql = std::make_unique<Engine>(Engine{"mysql", mysqlConnectionString(), &openRawMysql, true});
    registerMethods(*mysql);
  }
  const int status = runBesidePeers(argc, argv);
  benchmark::ClearRegisteredBenchmarks();  // ends the sessions, which drop their databases
  return status;
}
