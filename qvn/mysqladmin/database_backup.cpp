#include "qvn/mysqladmin/database_backup.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "qvn/core/recordsets.h"
#include "qvn/host/require.h"
#include "qvn/mysqladmin/dump_file.h"
#include "qvn/mysqladmin/dump_formats.h"
#include "qvn/mysqladmin/dump_value.h"
#include "qvn/mysqladmin/dump_writer.h"
#include "qvn/mysqladmin/product.h"
#include "qvn/text/search.h"

namespace qvn::mysqladmin {
namespace {

using data::RecordsetPtr;

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::int64_t kRowsBetweenReports = 512;

// Rows that stream whatever the host's connection prefers.
RecordsetPtr openRows(const std::string& sql, const data::ConnectionPtr& connection) {
  auto rows = std::make_shared<data::Recordset>();
  rows->setCursorLocation(data::CursorLocation::Server);
  rows->Open(sql, connection);
  return rows;
}

class Dump {
 public:
  Dump(DumpWriter& writer, const data::ConnectionPtr& connection, Clock& clock, const TransferObserver& observe,
       BackupReport& report)
      : writer_(writer), connection_(connection), clock_(clock), observe_(observe), report_(report) {}

  void write() {
    writeHeader();
    RecordsetPtr tables;
    step("SHOW TABLE STATUS", [&] { tables = core::RstRO("SHOW TABLE STATUS", connection_); });
    step("estimación", [&] { estimate(tables); });
    for (bool hasTable = true; hasTable && !report_.wasInterrupted;) {
      hasTable = false;
      step("SHOW TABLE STATUS", [&] {
        if (!tables || tables->Eof()) return;
        table_ = tables->Fields("Name").Value().toText();
        tables->MoveNext();
        hasTable = true;
      });
      if (hasTable) writeTable();
    }
    table_.clear();
    writeLine("");
    writeLine("SET FOREIGN_KEY_CHECKS=1;");
    writeLine("");
    writeLine("# Fin del Respaldo: " + dumpMoment(clock_.now()));
    step("escritura", [this] { writer_.finish(); });
    report_.bytes = writer_.bytes();
  }

 private:
  // The one place where the dump passes over an error, as its contract says.
  template <typename Action>
  void step(std::string_view name, Action action) {
    try {
      action();
    } catch (const RuntimeError& error) {
      report_.skip(table_, name, error);
    }
  }

  void writeLine(std::string_view line) {
    step("escritura", [&] { writer_ << line << kLineEnd; });
  }

  void writeHeading(const std::string& text) {
    writeLine("");
    writeLine("#");
    writeLine(text);
    writeLine("#");
  }

  void writeHeader() {
    const std::string database(namedDatabase(connection_->ConnectionString()));
    if (database.empty()) {
      report_.skip(
          "", "DATABASE=",
          RuntimeError(error_number::kInvalidCall,
                       "La cadena de conexión no dice la base de datos (DATABASE=); el respaldo queda sin ella"));
    }
    writeLine("");
    writeLine("#");
    writeLine("# Respaldo creado por: " + productName());
    writeLine("# Base datos: " + database);
    writeLine("# Fecha/Hora: " + dumpMoment(clock_.now()));
    step("show variables like 'version';", [this] {
      const RecordsetPtr version = openRows("show variables like 'version';", connection_);
      if (!version->Eof()) writeLine("# DBMS: MySQL v" + version->Fields(1).Value().toText());
    });
    writeLine("#");
    writeLine("");
    writeLine("SET FOREIGN_KEY_CHECKS=0;");
    writeLine("");
    writeLine("DROP DATABASE IF EXISTS `" + database + "`;");
    writeLine("CREATE DATABASE `" + database + "`;");
    writeLine("USE `" + database + "`;");
  }

  void estimate(const RecordsetPtr& tables) {
    for (; tables && !tables->Eof(); tables->MoveNext()) {
      const Variant& rows = tables->Fields("Rows").Value();
      if (!rows.isNull()) estimatedRows_ += rows.toLongLong();
    }
    if (tables && tables->RecordCount() > 0) tables->MoveFirst();
  }

  void writeTable() {
    ++report_.tables;
    writeHeading("# Estructura de la tabla " + table_);
    const std::string show = "SHOW CREATE TABLE " + table_;
    step(show, [&] {
      const RecordsetPtr definition = openRows(show, connection_);
      writeLine(definition->Fields(1).Value().toText() + ";");
    });
    writeHeading("# Datos de la tabla " + table_);
    writeLine("lock tables `" + table_ + "` write;");
    const std::string select = "SELECT * FROM " + table_;
    step(select, [&] { writeRows(*openRows(select, connection_)); });
    writeLine("unlock tables;");
    writeLine("#--------------------------------------------");
  }

  void writeRows(data::Recordset& rows) {
    if (rows.Eof()) return;
    const std::string start = "INSERT INTO `" + table_ + "` VALUES ";
    const std::int64_t before = writer_.bytes();
    writeLine(start);
    std::vector<const data::Field*> fields;
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) fields.push_back(&rows.Fields(i));
    for (bool isLast = false; !isLast;) {
      makeRow(fields);
      // A row behind which the rows fail is the last one.
      isLast = true;
      step(rows.Source(), [&] {
        rows.MoveNext();
        isLast = rows.Eof();
      });
      row_.push_back(isLast || isInterrupted() ? ';' : ',');
      isLast = isLast || report_.wasInterrupted;
      writeLine(row_);
      ++report_.rows;
    }
    report_.longestStatement = std::max(report_.longestStatement, writer_.bytes() - before);
  }

  void makeRow(const std::vector<const data::Field*>& fields) {
    row_ = "(";
    const char* separator = "'";
    for (const data::Field* const field : fields) {
      // What fails leaves the text of the value before.
      step(field->Name(), [&] { writeDumpValue(field->Value(), field->Type(), value_); });
      row_.append(separator).append(value_).push_back('\'');
      separator = ", '";
    }
    row_.push_back(')');
  }

  bool isInterrupted() {
    if (!observe_ || report_.rows % kRowsBetweenReports != 0) return false;
    report_.wasInterrupted = !observe_({.table = table_,
                                        .rows = report_.rows,
                                        .bytes = writer_.bytes(),
                                        .done = report_.rows,
                                        .total = estimatedRows_});
    return report_.wasInterrupted;
  }

  DumpWriter& writer_;
  const data::ConnectionPtr& connection_;
  Clock& clock_;
  const TransferObserver& observe_;
  BackupReport& report_;
  std::string table_;
  std::int64_t estimatedRows_ = 0;
  std::string value_;  // one for the whole dump
  std::string row_;
};

}  // namespace

std::string_view namedDatabase(std::string_view connectionString) {
  static constexpr std::string_view kMark = "DATABASE=";
  const std::size_t at = text::findIgnoringCase(kMark, connectionString);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = connectionString.substr(at + kMark.size());
  return rest.substr(0, rest.find(';'));
}

BackupReport DatabaseBackup(std::string_view strFileName, const data::ConnectionPtr& conn, Clock& clock,
                            const TransferOptions& options) {
  BackupReport report;
  try {
    const data::ConnectionPtr& connection = host::required(conn);
    DumpSinkPtr file = createDumpFile(strFileName);
    DumpWriter writer(options.hasFormats ? compressedFor(strFileName, std::move(file)) : std::move(file));
    Dump(writer, connection, clock, options.observe, report).write();
  } catch (const RuntimeError& error) {
    report.skip("", "archivo", error);
  }
  return report;
}

}  // namespace qvn::mysqladmin
