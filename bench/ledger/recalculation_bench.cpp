// The recalculation of a whole ledger beside ActualizaSaldo document by document, on the same rows: a SQLite file, and
// the MySQL server when the environment names one. Every balance is wrong before each of both, so that each document is
// written. The peer runs on a sample spread over all documents, and its time is scaled. Memory is the process's peak
// while the recalculation runs.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

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

void spoilBalances(Connection& connection) { connection.Execute("UPDATE cobranza SET saldo = 1, estado = 'S'"); }

double measureOneByOne(const ConnectionPtr& connection, int documents) {
  const auto ambiente = std::make_shared<qvn::host::SimpleAmbiente>(connection);
  qvn::host::QueryPtr query;
  const double seconds = secondsOf([&] {
    for (int i = 0; i < kSample; ++i) qvn::ledger::ActualizaSaldo(i * (documents / kSample), ambiente, query);
  });
  return seconds * documents / kSample;
}

void compare(const char* engine, const ConnectionPtr& connection, int documents) {
  createShop(*connection, documents);
  spoilBalances(*connection);
  const double oneByOne = measureOneByOne(connection, documents);
  spoilBalances(*connection);
  forgetPeak();
  qvn::ledger::RecalculationResult result;
  const auto recalculate = [&] { result = qvn::ledger::recalculate(qvn::ledger::LedgerSide::Customers, connection); };
  const double whole = secondsOf(recalculate);
  const long peak = peakKilobytes();
  const auto written = result.documents.changed;
  const double again = secondsOf(recalculate);
  std::printf("%-8s %9d %9lld %14.2f %12.2f %12.2f %8.1fx %9ld\n", engine, documents, static_cast<long long>(written),
              oneByOne, whole, again, oneByOne / whole, peak);
  std::fflush(stdout);
}

void compareSizes(const char* engine, const std::string& connectionString) {
  const ConnectionPtr connection = Connection::create();
  connection->Open(connectionString);
  for (const int documents : {10'000, 100'000}) compare(engine, connection, documents);
  dropShop(*connection);
}

}  // namespace

int main() {
  qvn::data::registerBuiltInDrivers();
  std::printf("%-8s %9s %9s %14s %12s %12s %9s %9s\n", "engine", "documents", "written", "one by one, s", "all, s",
              "again, s", "speed", "peak, kB");
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "qvn_bench_recalculation.db";
  std::filesystem::remove(file);
  compareSizes("sqlite", "Provider=SQLite;Mode=ReadWriteCreate;Data Source=" + file.string());
  std::filesystem::remove(file);
  if (const char* server = std::getenv("QVN_TEST_MYSQL")) compareSizes("mysql", server);
}
