#include "qvn/mysqladmin/faithful_backup.h"

#include <algorithm>
#include <vector>

#include "qvn/data/provider_error.h"
#include "qvn/host/replaced_file.h"
#include "qvn/mysqladmin/dump_file.h"
#include "qvn/mysqladmin/dump_formats.h"
#include "qvn/mysqladmin/dump_writer.h"
#include "qvn/mysqladmin/faithful_rows.h"
#include "qvn/mysqladmin/product.h"
#include "qvn/mysqladmin/schema.h"
#include "qvn/mysqladmin/session_settings.h"

namespace qvn::mysqladmin {
namespace {

// Each INSERT is committed by itself: InnoDB takes twice as long for a table in one transaction.
constexpr std::string_view kSettings =
    "SET NAMES utf8mb4;\n"
    "SET @qvn_sql_mode = @@sql_mode, @qvn_time_zone = @@time_zone, @qvn_autocommit = @@autocommit;\n"
    "SET @qvn_foreign_key_checks = @@foreign_key_checks, @qvn_unique_checks = @@unique_checks;\n"
    "SET SESSION sql_mode = 'NO_AUTO_VALUE_ON_ZERO', time_zone = '+00:00', autocommit = 1;\n"
    "SET SESSION foreign_key_checks = 0, unique_checks = 0;\n";
constexpr std::string_view kFormerSettings =
    "SET SESSION foreign_key_checks = @qvn_foreign_key_checks, unique_checks = @qvn_unique_checks;\n"
    "SET SESSION sql_mode = @qvn_sql_mode, time_zone = @qvn_time_zone, autocommit = @qvn_autocommit;\n";

// Comments end with their line, whatever a name holds.
std::string onOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return text;
}

std::string secondText(const std::string& sql, const data::ConnectionPtr& connection) {
  return connection->Execute(sql)->Fields(1).Value().toText();
}

// From here on the session reads all tables as they are at this moment.
void freeze(const std::vector<DatabaseTable>& tables, const data::ConnectionPtr& connection) {
  const bool haveSnapshots = std::ranges::all_of(
      tables, [](const DatabaseTable& table) { return table.kind != TableKind::Table || table.hasSnapshots(); });
  if (haveSnapshots) {
    connection->Execute("START TRANSACTION WITH CONSISTENT SNAPSHOT");
    return;
  }
  std::string lock = "LOCK TABLES ";
  const char* separator = "";
  for (const DatabaseTable& table : tables) {
    if (table.kind == TableKind::View) continue;
    lock.append(separator).append(quotedName(table.name)).append(" READ");
    separator = ", ";
  }
  connection->Execute(lock);
}

class FaithfulDump {
 public:
  FaithfulDump(DumpWriter& writer, const data::ConnectionPtr& connection, const std::string& database,
               const TransferObserver& observe, BackupReport& report)
      : writer_(writer), connection_(connection), database_(database), observe_(observe), report_(report) {}

  void write(Clock& clock) {
    // Definitions come back in the quotes of the mode.
    connection_->Execute(
        "SET SESSION sql_mode = '', time_zone = '+00:00', tx_isolation = 'REPEATABLE-READ', autocommit = 1");
    const std::vector<DatabaseTable> tables = readTables(connection_);
    // A session that locks tables can look at no view.
    const std::string views = viewStatements(tables);
    freeze(tables, connection_);
    writeHeader(clock);
    RowTransfer transfer(writer_, connection_, observe_, report_);
    for (const DatabaseTable& table : tables) transfer.expect(table.estimatedRows);
    for (const DatabaseTable& table : tables) {
      if (table.kind == TableKind::Sequence) writeSequence(table.name);
      if (table.kind == TableKind::Table) writeTable(table, transfer);
      if (report_.wasInterrupted) return;
    }
    writer_ << views;
    writeTriggers();
    writer_ << "\n" << kFormerSettings << "\n# Fin del Respaldo: " << dumpMoment(clock.now()) << "\n";
  }

 private:
  void writeHeading(const std::string& title) { writer_ << "\n#\n# " << onOneLine(title) << "\n#\n"; }

  void writeHeader(Clock& clock) {
    const std::string name = quotedName(database_);
    writer_ << "#\n# Respaldo fiel creado por: " << productName() << "\n# Base datos: " << onOneLine(database_)
            << "\n# Fecha/Hora: " << dumpMoment(clock.now()) << "\n# DBMS: MySQL v"
            << firstText("SELECT VERSION()", connection_) << "\n#\n\n"
            << kSettings << "\nDROP DATABASE IF EXISTS " << name << ";\n"
            << secondText("SHOW CREATE DATABASE " + name, connection_) << ";\nUSE " << name << ";\n";
  }

  void writeTable(const DatabaseTable& table, RowTransfer& transfer) {
    ++report_.tables;
    const std::string name = quotedName(table.name);
    writeHeading("Estructura de la tabla " + table.name);
    writer_ << "DROP TABLE IF EXISTS " << name << ";\n"
            << secondText("SHOW CREATE TABLE " + name, connection_) << ";\n";
    writeHeading("Datos de la tabla " + table.name);
    // Without snapshots the indexes of an engine are faster to make when all rows are there.
    if (!table.hasSnapshots()) writer_ << "ALTER TABLE " << name << " DISABLE KEYS;\n";
    transfer.writeRows(table.name);
    if (!table.hasSnapshots()) writer_ << "ALTER TABLE " << name << " ENABLE KEYS;\n";
  }

  void writeSequence(const std::string& sequence) {
    const std::string name = quotedName(sequence);
    writeHeading("Secuencia " + sequence);
    writer_ << "DROP SEQUENCE IF EXISTS " << name << ";\n"
            << secondText("SHOW CREATE SEQUENCE " + name, connection_) << ";\nDO SETVAL(" << name << ", "
            << firstText("SELECT next_not_cached_value FROM " + name, connection_) << ", 0);\n";
  }

  // Views may read other views: each stands first for its columns alone.
  std::string viewStatements(const std::vector<DatabaseTable>& tables) {
    std::string placeholders;
    std::string definitions;
    for (const DatabaseTable& table : tables) {
      if (table.kind != TableKind::View) continue;
      const std::string name = quotedName(table.name);
      try {
        const std::string create = secondText("SHOW CREATE VIEW " + name, connection_);
        std::string columns;
        for (const DatabaseColumn& column : readColumns(table.name, connection_)) {
          columns.append(columns.empty() ? "" : ", ").append("1 AS ").append(quotedName(column.name));
        }
        placeholders.append("CREATE OR REPLACE VIEW ").append(name).append(" AS SELECT ").append(columns).append(";\n");
        definitions.append("CREATE OR REPLACE").append(create, std::string_view("CREATE").size()).append(";\n");
      } catch (const data::ProviderError& error) {
        // One that reads what is no longer there.
        report_.skip(table.name, "SHOW CREATE VIEW", error);
      }
    }
    return placeholders.empty() ? "" : "\n#\n# Vistas\n#\n" + placeholders + definitions;
  }

  // Their texts hold ";" and lines of their own, and each runs in the mode that it was made in.
  void writeTriggers() {
    const std::vector<std::string> names = readNames(
        "SELECT TRIGGER_NAME FROM information_schema.TRIGGERS WHERE TRIGGER_SCHEMA = DATABASE() "
        "ORDER BY EVENT_OBJECT_TABLE, ACTION_ORDER",
        connection_);
    for (const std::string& trigger : names) {
      writeHeading("Disparador " + trigger);
      const auto row = connection_->Execute("SHOW CREATE TRIGGER " + quotedName(trigger));
      writer_ << "SET SESSION sql_mode = " << connection_->Literal(row->Fields(1).Value()) << ";\nDELIMITER ;;\n"
              << row->Fields(2).Value().toText() << ";;\nDELIMITER ;\n";
    }
  }

  DumpWriter& writer_;
  const data::ConnectionPtr& connection_;
  const std::string& database_;
  const TransferObserver& observe_;
  BackupReport& report_;
};

}  // namespace

BackupReport backupFaithfully(std::string_view path, const data::ConnectionPtr& connection, Clock& clock,
                              const TransferObserver& observe) {
  const SessionSettings settings(connection);
  if (settings.database().empty()) {
    throw RuntimeError(error_number::kInvalidCall,
                       "La conexión no tiene base de datos que respaldar; indíquela con DATABASE=");
  }
  host::ReplacedFile file(path);
  BackupReport report;
  DumpWriter writer(compressedFor(path, createDumpFile(file.name())));
  FaithfulDump(writer, connection, settings.database(), observe, report).write(clock);
  if (report.wasInterrupted) return report;
  writer.finish();
  report.bytes = writer.bytes();
  file.publish();
  return report;
}

}  // namespace qvn::mysqladmin
