// Reading a million rows through a recordset, beside the same loop on each engine's own client library. Both sides read
// every column of every row and add up the same checksum.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/data/raw_reader.h"
#include "bench/support/mysql_peer.h"
#include "bench/support/peer_report.h"
#include "qvn/data/connection.h"
#include "qvn/data/connection_string.h"
#include "qvn/data/drivers/built_in.h"

namespace qvn::bench {

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "bench_read_rows: %s\n", what);
  std::exit(1);
}

namespace {

using data::Connection;
using data::ConnectionPtr;

constexpr int kRows = 1'000'000;

struct Peer {
  std::string name;
  ConnectionPtr connection;
  std::shared_ptr<RawReader> raw;
};

ConnectionPtr open(const std::string& connectionString) {
  auto connection = Connection::create();
  // A table is filled by one statement, and the machine may have other work.
  connection->setCommandTimeout(std::chrono::minutes(10));
  connection->Open(connectionString);
  return connection;
}

void createTable(const ConnectionPtr& connection) {
  connection->Execute(
      "CREATE TABLE bench_prods (id INTEGER NOT NULL PRIMARY KEY, articulo VARCHAR(20), nombre VARCHAR(60), precio "
      "DOUBLE PRECISION, existencia INTEGER)");
}

void fill(const ConnectionPtr& connection) {
  connection->Execute("DROP TABLE IF EXISTS bench_prods");
  createTable(connection);
  connection->Execute("BEGIN");
  for (int i = 0; i < kRows;) {
    std::string sql = "INSERT INTO bench_prods VALUES ";
    for (const int end = i + 1000; i < end; ++i) {
      const std::string id = std::to_string(i);
      sql += "(" + id + ",'ART-" + id + "','Tornillo de cabeza plana núm. " + id + "'," + std::to_string(i % 9973) +
             "." + std::to_string(i % 90 + 10) + "," + std::to_string(i % 500) + (i + 1 < end ? ")," : ")");
    }
    connection->Execute(sql);
  }
  connection->Execute("COMMIT");
}

// The engine takes one row per statement; it makes the same rows by itself.
void fillFirebird(const ConnectionPtr& connection) {
  createTable(connection);
  connection->Execute(
      "EXECUTE BLOCK AS DECLARE i INTEGER = 0; BEGIN WHILE (i < " + std::to_string(kRows) +
      ") DO BEGIN INSERT INTO bench_prods VALUES (:i, 'ART-' || :i, 'Tornillo de cabeza plana núm. ' || :i, "
      "CAST(MOD(:i, 9973) || '.' || (MOD(:i, 90) + 10) AS DOUBLE PRECISION), MOD(:i, 500)); i = i + 1; END END");
}

Checksum readRecordset(const ConnectionPtr& connection) {
  Checksum sum;
  const auto rows = connection->Execute(kSelect);
  const auto& id = rows->Fields("id");
  const auto& code = rows->Fields("articulo");
  const auto& name = rows->Fields("nombre");
  const auto& price = rows->Fields("precio");
  const auto& stock = rows->Fields("existencia");
  for (; !rows->Eof(); rows->MoveNext()) {
    sum.whole += id.Value().toLong() + stock.Value().toLong();
    sum.amount += price.Value().toDouble();
    sum.characters += code.Value().getIf<std::string>()->size() + name.Value().getIf<std::string>()->size();
  }
  return sum;
}

// The private server, through the driver manager.
std::string odbcToMysql() {
  const data::ConnectionString native(mysqlConnectionString());
  const auto part = [&](const char* name) { return native.value({name}).value_or(""); };
  return "DRIVER={MariaDB Unicode};SOCKET=" + part("SOCKET") + ";DATABASE=" + part("DATABASE") + ";UID=" + part("UID") +
         ";PWD={" + part("PWD") + "}";
}

// Most memory that the process ever had, in KiB.
long peakKib() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

void registerReader(const std::string& name, const std::function<Checksum()>& read, const Checksum& expected) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [read, expected](benchmark::State& state) {
                                 for (auto _ : state) require(read() == expected, "the two sides read different rows");
                                 state.SetItemsProcessed(state.iterations() * kRows);
                               })
      ->Unit(benchmark::kMillisecond)
      ->MinTime(0.1);
}

int runAll(int argc, char** argv, const std::filesystem::path& folder) {
  const std::string sqliteFile = (folder / "prods.db").string();
  const std::string firebirdFile = (folder / "prods.fdb").string();
  const std::string odbcSqlite = "DRIVER=SQLite3;Database=" + sqliteFile;
  const ConnectionPtr sqlite = open("Provider=SQLite;Data Source=" + sqliteFile + ";Mode=ReadWriteCreate");
  fill(sqlite);
  const ConnectionPtr mysql = open(mysqlConnectionString());
  fill(mysql);
  const ConnectionPtr firebird =
      open("Provider=IbOleDb;Data Source=" + firebirdFile + ";User ID=SYSDBA;Mode=ReadWriteCreate");
  fillFirebird(firebird);
  const std::vector<Peer> peers = {
      {"read_sqlite", sqlite, rawSqlite(sqliteFile)},
      {"read_mysql", mysql, rawMysql()},
      {"read_firebird", firebird, rawFirebird(firebirdFile)},
      {"read_odbc_mariadb", open(odbcToMysql()), rawOdbc(odbcToMysql())},
      {"read_odbc_sqlite", open(odbcSqlite), rawOdbc(odbcSqlite)},
  };
  const Checksum expected = readRecordset(sqlite);
  for (const Peer& peer : peers) {
    const long before = peakKib();
    require(readRecordset(peer.connection) == expected, "the engines hold different rows");
    std::printf("%-20s peak memory while streaming %d rows: +%ld KiB\n", peer.name.c_str(), kRows, peakKib() - before);
    registerReader(
        peer.name + "/raw", [raw = peer.raw] { return raw->read(); }, expected);
    registerReader(
        peer.name + "/qvn", [connection = peer.connection] { return readRecordset(connection); }, expected);
  }
  const int status = runBesidePeers(argc, argv);
  mysql->Execute("DROP TABLE bench_prods");
  return status;
}

}  // namespace
}  // namespace qvn::bench

int main(int argc, char** argv) {
  qvn::data::registerBuiltInDrivers();
  const auto folder = std::filesystem::temp_directory_path() / "qvn_bench_read_rows";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  const int status = qvn::bench::runAll(argc, argv, folder);
  std::filesystem::remove_all(folder);
  return status;
}
