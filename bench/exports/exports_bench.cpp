// A million rows of an SQLite file as a workbook, beside a bare loop over the same libraries, with the memory of each.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "bench/exports/raw_export.h"
#include "bench/support/child_program.h"
#include "bench/support/peer_report.h"
#include "qvn/data/connection.h"
#include "qvn/data/drivers/built_in.h"
#include "qvn/exports/spreadsheet.h"

namespace qvn::bench {
namespace {

std::string newFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "qvn_bench_XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) std::abort();
  return name;
}

data::ConnectionPtr open(const std::string& database) {
  data::registerBuiltInDrivers();
  auto connection = data::Connection::create();
  connection->Open("Provider=SQLite;Mode=ReadWriteCreate;Data Source=" + database);
  return connection;
}

void makeSales(const std::string& database) {
  const data::ConnectionPtr connection = open(database);
  connection->Execute(
      "CREATE TABLE partvta (venta INTEGER, fecha DATE, dias INTEGER, articulo VARCHAR(16), "
      "nombre VARCHAR(40), importe DECIMAL(12,2))");
  connection->Execute(
      "WITH RECURSIVE c(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM c WHERE n < 999999) INSERT INTO partvta SELECT "
      "n + 1, date('2020-01-01', (n % 2000) || ' days'), 43831 + n % 2000, printf('PLU-%07d', n % 9000), "
      "'Tornillo de cabeza plana ' || n % 9000, (n % 100000) / 100.0 FROM c");
}

// The peer is given the days that sheets count.
std::string query(std::string_view date, std::string_view rows) {
  return "SELECT venta, " + std::string(date) + ", articulo, nombre, importe FROM partvta LIMIT " + std::string(rows);
}

void exportOwn(const std::string& database, const std::string& rows, const std::string& file) {
  exports::SpreadsheetExport excel;
  excel.Open(file, exports::SpreadsheetExport::OnExisting::Replace);
  excel.AddSheet(open(database)->Execute(query("fecha", rows)));
  excel.Close();
}

// This program, called again for one export, so that its memory is that export's alone.
int exportAsChild(char** argv) {
  const std::string folder = argv[3];
  const std::string database = folder + "/ventas.db";
  if (std::string_view(argv[1]) == "qvn") {
    exportOwn(database, argv[2], folder + "/qvn.xlsx");
  } else {
    exportRaw(database, query("dias", argv[2]), folder + "/raw.xlsx");
  }
  return 0;
}

void add(const std::string& group, const std::string& who, const std::string& rows, const std::string& folder) {
  const ChildProgram program{{std::filesystem::read_symlink("/proc/self/exe").string(), who, rows, folder}};
  const auto turn = [program](benchmark::State& state) {
    double peak = 0;
    for (auto _ : state) peak = peakMegabytes(program);
    state.counters["peak_MB"] = peak;
  };
  benchmark::RegisterBenchmark((group + "/" + who).c_str(), turn)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime()
      ->Iterations(1);
}

int runAll(int argc, char** argv) {
  const std::string folder = newFolder();
  makeSales(folder + "/ventas.db");
  for (const std::string rows : {"100000", "1000000"}) {
    for (const std::string who : {"qvn", "libxlsxwriter"}) add("export_" + rows, who, rows, folder);
  }
  const int status = runBesidePeers(argc, argv);
  std::filesystem::remove_all(folder);
  return status;
}

}  // namespace
}  // namespace qvn::bench

int main(int argc, char** argv) {
  const bool isChild = argc == 4 && argv[1][0] != '-';
  return isChild ? qvn::bench::exportAsChild(argv) : qvn::bench::runAll(argc, argv);
}
