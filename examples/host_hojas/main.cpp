// A host that exports: makes a few sales in memory and writes them into the workbook that it is given, with a total.
#include <clocale>
#include <exception>
#include <iostream>

#include "qvn/dialogs/progress.h"
#include "qvn/exports/spreadsheet.h"
#include "qvn/lumlibreria.h"

namespace {

void createSales(const qvn::data::ConnectionPtr& connection) {
  for (const char* sql : {
           "CREATE TABLE partvta (venta INTEGER, fecha DATE, articulo VARCHAR(16), importe DECIMAL(12,2))",
           "INSERT INTO partvta VALUES (1, '2026-02-09', '00120', 1160.00)",
           "INSERT INTO partvta VALUES (1, '2026-02-09', 'PLU-17', 58.50)",
           "INSERT INTO partvta VALUES (2, '2026-02-10', '00120', 580.00)",
       }) {
    connection->Execute(sql);
  }
}

int run(const char* path) {
  const qvn::LumLibreria library;
  const auto connection = library.NewSQLite();
  connection->Open(connection->ConnectionString() + "Data Source=:memory:");
  createSales(connection);
  const auto rows = library.CreaRecordSet("SELECT venta, fecha, articulo, importe FROM partvta", connection);

  qvn::dialogs::Progress progress;
  progress.setTitle("Exportación");
  progress.setText("Ventas");
  progress.Show();
  qvn::exports::SpreadsheetExport excel;
  excel.Open(path);
  const bool isComplete = excel.AddSheet(
      rows, {.name = "Ventas", .columns = {{.field = "importe", .title = "Importe", .isTotalled = true}}},
      [&progress](std::int64_t count) { return progress.MoveTo(count); });
  progress.Hide();
  if (!isComplete) return 1;
  excel.Close();
  std::cout << path << ": " << excel.Report().rows << " registros\n";
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  if (argc != 2) {
    std::cerr << "Uso: host_hojas ARCHIVO.xlsx\n";
    return 2;
  }
  try {
    return run(argv[1]);
  } catch (const qvn::RuntimeError& error) {
    std::cerr << "host_hojas: error " << error.number() << ": " << error.what() << "\n";
  } catch (const std::exception& error) {
    std::cerr << "host_hojas: " << error.what() << "\n";
  }
  return 1;
}
