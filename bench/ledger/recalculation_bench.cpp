// The recalculation of a whole ledger beside ActualizaSaldo document by document, on the same rows: a SQLite file and
// the private MySQL server. Every balance is wrong before each of both, so that each document is
// written. The peer runs on a sample spread over all documents, and its time is scaled. Memory is the process's peak
// while the recalculation runs.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "bench/support/mysql_peer.h"
#include "bench/support/peer_report.h"
#include "qvn/data/drivers/built_in.h"
#include "qvn/ledger/recalculation.h"
#include "qvn/ledger/receivables.h"

namespace {

using qvn::data::Connection;
using qvn::data::ConnectionPtr;
using Seconds = std::chrono::duration<double>;

constexpr int kDocumentsPerCustomer = 100;
constexpr int kSample = 1000;

template <typename Work>
double secondsOf(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return Seconds(std::chrono::steady_clock::now() - start).count();
}

void forgetPeak() { std::ofstream("/proc/self/clear_refs") << "5"; }

long peakKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::strtol(line.c_str() + 6, nullptr, 10);
  }
  return 0;
}

void dropShop(Connection& connection) {
  for (const char* table : {"clients", "cobranza", "cobdet"}) {
    connection.Execute("DROP TABLE IF EXISTS " + std::string(table));
  }
}

void createShop(Connection& connection, int documents) {
  dropShop(connection);
  for (const char* sql : {"CREATE TABLE clients (cliente VARCHAR(20) PRIMARY KEY, saldo DOUBLE)",
                          "CREATE TABLE cobranza (cobranza INTEGER PRIMARY KEY, cliente VARCHAR(20), saldo DOUBLE, "
                          "tip_cam DOUBLE, estado CHAR(1))",
                          "CREATE TABLE cobdet (id INTEGER PRIMARY KEY, cobranza INTEGER, cargo_ab CHAR(1), "
                          "importe DOUBLE)",
                          "CREATE INDEX cobdet_cobranza ON cobdet (cobranza)",
                          "CREATE INDEX cobranza_cliente ON cobranza (cliente)", "BEGIN"}) {
    connection.Execute(sql);
  }
  for (int i = 0; i * kDocumentsPerCustomer < documents; ++i) {
    connection.Execute("INSERT INTO clients VALUES ('C" + std::to_string(i) + "', 0)");
  }
  for (int i = 0; i < documents; ++i) {
    const std::string id = std::to_string(i);
    const std::string customer = std::to_string(i % (documents / kDocumentsPerCustomer));
    connection.Execute("INSERT INTO cobranza VALUES (" + id + ",'C" + customer + "',0,1,'P')");
    connection.Execute("INSERT INTO cobdet VALUES (" + std::to_string(3 * i) + "," + id + ",'C',1500.5),(" +
                       std::to_string(3 * i + 1) + "," + id + ",'A',500.25),(" + std::to_string(3 * i + 2) + "," + id +
                       ",'A',120)");
  }
  connection.Execute("COMMIT");
}

// A ledger of the size that a benchmark asks for, made anew only when the one before asked for another.
class Books {
 public:
  Books(std::string engine, const std::string& connectionString)
      : engine_(std::move(engine)), connection_(Connection::create()) {
    connection_->Open(connectionString);
  }
  ~Books() { dropShop(*connection_); }
  Books(const Books&) = delete;
  Books& operator=(const Books&) = delete;

  [[nodiscard]] const std::string& engine() const { return engine_; }

  const ConnectionPtr& spoilt(int documents) {
    if (documents != documents_) createShop(*connection_, documents);
    documents_ = documents;
    connection_->Execute("UPDATE cobranza SET saldo = 1, estado = 'S'");
    return connection_;
  }

 private:
  std::string engine_;
  ConnectionPtr connection_;
  int documents_ = 0;
};

void oneByOne(benchmark::State& state, Books& books, int documents) {
  for (auto _ : state) {
    const auto ambiente = std::make_shared<qvn::host::SimpleAmbiente>(books.spoilt(documents));
    qvn::host::QueryPtr query;
    const double seconds = secondsOf([&] {
      for (int i = 0; i < kSample; ++i) qvn::ledger::ActualizaSaldo(i * (documents / kSample), ambiente, query);
    });
    state.SetIterationTime(seconds * documents / kSample);
  }
}

void whole(benchmark::State& state, Books& books, int documents) {
  for (auto _ : state) {
    const ConnectionPtr connection = books.spoilt(documents);
    forgetPeak();
    qvn::ledger::RecalculationResult result;
    const auto recalculate = [&] { result = qvn::ledger::recalculate(qvn::ledger::LedgerSide::Customers, connection); };
    state.SetIterationTime(secondsOf(recalculate));
    state.counters["peak_kB"] = static_cast<double>(peakKilobytes());
    state.counters["written"] = static_cast<double>(result.documents.changed);
    state.counters["again_s"] = secondsOf(recalculate);
  }
}

void add(Books& books) {
  for (const int documents : {10'000, 100'000}) {
    const std::string group = "recalculate_" + books.engine() + "_" + std::to_string(documents);
    const auto add = [&](const char* who, void (*turn)(benchmark::State&, Books&, int)) {
      benchmark::RegisterBenchmark(
          (group + who).c_str(), [turn, &books, documents](benchmark::State& state) { turn(state, books, documents); })
          ->Unit(benchmark::kMillisecond)
          ->Iterations(1)
          ->UseManualTime();
    };
    add("/one_by_one", oneByOne);
    add("/qvn", whole);
  }
}

// One turn each, and in order: a ledger takes longer to make than to measure.
int runInOrder(int argc, char** argv) {
  std::string once = "--benchmark_repetitions=1";
  std::string inOrder = "--benchmark_enable_random_interleaving=false";
  std::vector<char*> arguments{argv[0], once.data(), inOrder.data()};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  return qvn::bench::runBesidePeers(static_cast<int>(arguments.size()), arguments.data());
}

}  // namespace

int main(int argc, char** argv) {
  qvn::data::registerBuiltInDrivers();
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "qvn_bench_recalculation.db";
  std::filesystem::remove(file);
  int status = 0;
  {
    Books onSqlite("sqlite", "Provider=SQLite;Mode=ReadWriteCreate;Data Source=" + file.string());
    Books onMysql("mysql", qvn::bench::mysqlConnectionString());
    add(onSqlite);
    add(onMysql);
    status = runInOrder(argc, argv);
  }
  std::filesystem::remove(file);
  return status;
}
