#include "qvn/mysqladmin/table_repair.h"

#include "qvn/base/format_pattern.h"
#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/core/recordsets.h"
#include "qvn/host/require.h"
#include "qvn/host/statement_builder.h"
#include "qvn/text/search.h"

namespace qvn::mysqladmin {
namespace {

constexpr std::string_view kBookkeeping = "reparando";

std::string conditionFor(const std::string& table) { return "tabla = '" + table + "'"; }

std::string momentText(Clock& clock) { return formatValue(clock.now(), R"(dd\-mm\-yyyy hh\:nn\:ss)"); }

enum class Known { No, Yes, UnderWay };

Known lookUp(const std::string& table, const data::ConnectionPtr& connection) {
  const auto row = core::CreaRecordSet("SELECT * FROM reparando WHERE " + conditionFor(table), connection);
  if (row->Eof()) return Known::No;
  const Variant& flag = row->Fields("reparando").Value();
  return !flag.isNull() && equals(flag, Variant(1)) ? Known::UnderWay : Known::Yes;
}

void writeFlag(const std::string& table, std::string_view action, int flag, const data::ConnectionPtr& connection) {
  host::StatementBuilder builder;
  builder.Conexion(connection);
  builder.Accion(action);
  if (action == "UPDATE") builder.Condicion(conditionFor(table));
  builder.AgregaCampo(kBookkeeping, "tabla", table);
  builder.AgregaCampo(kBookkeeping, "reparando", flag);
  builder.Arma();
  builder.Ejecuta();
}

RepairOutcome analyze(const std::string& table, const data::ConnectionPtr& connection,
                      const dialogs::Dialogs::Show& show) {
  const auto result = connection->Execute("ANALYZE TABLE " + table);
  const std::string type = result->Fields("msg_type").Value().toText();
  // Servers write "Error".
  if (equalIgnoringCase(utf8::trimBlanks(type), "error")) {
    show("Reparando: " + table + "\r\n\r\nEs necesario reparar con el comando myisamchk");
    return RepairOutcome::NeedsOfflineTool;
  }
  show("Reparando: " + table + "\r\n" + type + " " + result->Fields("msg_text").Value().toText());
  return RepairOutcome::Repaired;
}

RepairOutcome repair(const std::string& table, const data::ConnectionPtr& connection, Clock& clock,
                     const dialogs::Dialogs::Show& show) {
  const auto note = [&](std::string_view field) {
    connection->Execute("UPDATE reparando SET " + std::string(field) + " = '" + momentText(clock) + "' WHERE " +
                        conditionFor(table));
  };
  note("fechainicio");
  connection->Execute("REPAIR TABLE " + table);
  connection->Execute("FLUSH TABLES");
  note("fechafin");
  return analyze(table, connection, show);
}

}  // namespace

RepairOutcome ReparaTabla(std::string_view text, const data::ConnectionPtr& Connection, dialogs::Dialogs& dialogs,
                          Clock& clock) {
  const data::ConnectionPtr& connection = host::required(Connection);
  const std::string table = damagedTable(text);
  if (lowerCase(table) == kBookkeeping) {
    connection->Execute("REPAIR TABLE reparando");
    connection->Execute("FLUSH TABLES");
  }
  const Known known = lookUp(table, connection);
  if (known == Known::UnderWay) return RepairOutcome::UnderWay;
  if (known == Known::No) writeFlag(table, "INSERT", 1, connection);
  auto outcome = RepairOutcome::Repaired;
  dialogs.progress("Reparando: " + table,
                   [&](const dialogs::Dialogs::Show& show) { outcome = repair(table, connection, clock, show); });
  writeFlag(table, "UPDATE", 0, connection);
  return outcome;
}

std::string damagedTable(std::string_view text) {
  const std::size_t end = text::findIgnoringCase(".MYI", text);
  if (end == std::string_view::npos) return {};
  std::string_view name = text.substr(0, end);
  if (const std::size_t blank = name.rfind(' '); blank != std::string_view::npos) name.remove_prefix(blank + 1);
  // The quote in front of the file's name.
  if (!name.empty()) name.remove_prefix(1);
  // Servers of today put the path in front.
  if (const std::size_t separator = name.find_last_of("/\\"); separator != std::string_view::npos) {
    name.remove_prefix(separator + 1);
  }
  return std::string(name);
}

}  // namespace qvn::mysqladmin
