// Reading a million rows through a recordset, beside the same loop on each engine's own client library. Both sides read
// every column of every row and add up the same checksum.
#include <benchmark/benchmark.h>
#include <mysql.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "bench/support/mysql_peer.h"
#include "bench/support/peer_report.h"
#include "qvn/data/connection.h"
#include "qvn/data/drivers/built_in.h"

namespace {

using qvn::data::Connection;
using qvn::data::ConnectionPtr;

constexpr int kRows = 1'000'000;
constexpr const char* kSelect = "SELECT id, articulo, nombre, precio, existencia FROM bench_prods";

struct Checksum {
  std::int64_t whole = 0;
  double amount = 0;
  std::size_t characters = 0;
  bool operator==(const Checksum&) const = default;
};

void fill(const ConnectionPtr& connection) {
  connection->Execute("DROP TABLE IF EXISTS bench_prods");
  connection->Execute(
      "CREATE TABLE bench_prods (id INTEGER PRIMARY KEY, articulo VARCHAR(20), nombre VARCHAR(60), precio DOUBLE, "
      "existencia INTEGER)");
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

Checksum readSqlite(sqlite3* database) {
  Checksum sum;
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(database, kSelect, -1, &statement, nullptr);
  std::string code;
  std::string name;
  const auto take = [statement](int column, std::string& text) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    text.assign(bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
  };
  while (sqlite3_step(statement) == SQLITE_ROW) {
    sum.whole += sqlite3_column_int(statement, 0) + sqlite3_column_int(statement, 4);
    sum.amount += sqlite3_column_double(statement, 3);
    take(1, code);
    take(2, name);
    sum.characters += code.size() + name.size();
  }
  sqlite3_finalize(statement);
  return sum;
}

template <typename Number>
Number readNumber(const char* text, unsigned long size) {
  Number number{};
  std::from_chars(text, text + size, number);
  return number;
}

Checksum readMysql(MYSQL* server) {
  Checksum sum;
  mysql_query(server, kSelect);
  MYSQL_RES* result = mysql_use_result(server);
  std::string code;
  std::string name;
  while (MYSQL_ROW row = mysql_fetch_row(result)) {
    const unsigned long* sizes = mysql_fetch_lengths(result);
    sum.whole += readNumber<int>(row[0], sizes[0]) + readNumber<int>(row[4], sizes[4]);
    sum.amount += readNumber<double>(row[3], sizes[3]);
    code.assign(row[1], sizes[1]);
    name.assign(row[2], sizes[2]);
    sum.characters += code.size() + name.size();
  }
  mysql_free_result(result);
  return sum;
}

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "bench_read_rows: %s\n", what);
  std::exit(1);
}

// Most memory that the process ever had, in KiB.
long peakKib() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

template <typename Read>
void registerReader(const char* name, Read read, const Checksum& expected) {
  benchmark::RegisterBenchmark(name,
                               [read, expected](benchmark::State& state) {
                                 for (auto _ : state) require(read() == expected, "the two sides read different rows");
                                 state.SetItemsProcessed(state.iterations() * kRows);
                               })
      ->Unit(benchmark::kMillisecond)
      ->MinTime(0.1);
}

}  // namespace

int main(int argc, char** argv) {
  qvn::data::registerBuiltInDrivers();
  const auto folder = std::filesystem::temp_directory_path() / "qvn_bench_read_rows";
  std::filesystem::create_directories(folder);
  const std::string file = (folder / "prods.db").string();
  std::filesystem::remove(file);

  const ConnectionPtr sqlite = Connection::create();
  sqlite->Open("Provider=SQLite;Data Source=" + file + ";Mode=ReadWriteCreate");
  fill(sqlite);
  const ConnectionPtr mysql = Connection::create();
  mysql->Open(qvn::bench::mysqlConnectionString());
  fill(mysql);

  const long before = peakKib();
  const Checksum expected = readRecordset(sqlite);
  require(readRecordset(mysql) == expected, "the engines hold different rows");
  std::printf("peak memory while streaming 2 x %d rows: +%ld KiB\n", kRows, peakKib() - before);

  sqlite3* rawSqlite = nullptr;
  // As the library does: without locks for several threads.
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
  require(sqlite3_open_v2(file.c_str(), &rawSqlite, flags, nullptr) == SQLITE_OK, "cannot open the file");
  MYSQL* rawMysql = qvn::bench::connectMysqlPeer();
  require(rawMysql != nullptr, "cannot connect to the server");

  registerReader(
      "read_sqlite/raw", [=] { return readSqlite(rawSqlite); }, expected);
  registerReader(
      "read_sqlite/qvn", [=] { return readRecordset(sqlite); }, expected);
  registerReader(
      "read_mysql/raw", [=] { return readMysql(rawMysql); }, expected);
  registerReader(
      "read_mysql/qvn", [=] { return readRecordset(mysql); }, expected);
  const int status = qvn::bench::runBesidePeers(argc, argv);

  mysql->Execute("DROP TABLE bench_prods");
  mysql_close(rawMysql);
  sqlite3_close(rawSqlite);
  std::filesystem::remove_all(folder);
  return status;
}
