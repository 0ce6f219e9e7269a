#include "qvn/core/consecutive.h"

#include <string>

#include "qvn/base/runtime_error.h"
#include "qvn/core/dialect.h"
#include "qvn/core/recordsets.h"
#include "qvn/host/counter_draw.h"
#include "qvn/host/require.h"
#include "qvn/text/search.h"

namespace qvn::core {
namespace {

// Stricter than the dialect test: the word must begin the connection string.
bool beginsWithMySql(const data::Connection& connection) {
  return text::clAt(std::string(marker::kMySql), connection.ConnectionString()) == 1;
}

void refuseCluster(const data::Connection& connection) {
  if (!connection.IsClustered()) return;
  throw data::ProviderError(data::provider_number::kNotSupported,
                            "Este servidor forma parte de un clúster, donde LOCK TABLES vale en un solo servidor; tome "
                            "el consecutivo con TraeSiguienteSeguro");
}

std::int32_t incremented(std::int32_t number) {
  std::int32_t next = 0;
  if (__builtin_add_overflow(number, 1, &next)) throw RuntimeError(error_number::kOverflow);
  return next;
}

std::string updateText(const std::string& number, const std::string& counter) {
  return "UPDATE consec SET consec = " + number + " WHERE dato = '" + counter + "'";
}

std::int32_t insertFirst(const std::string& counter, host::Query& query) {
  host::runStatement(query, "INSERT INTO  consec  ( consec, dato) VALUES (1, '" + counter + "')");
  return 1;
}

std::int32_t advanceThroughQuery(const Variant& current, const std::string& counter, host::Query& query) {
  const std::int32_t next = incremented(current.toLong());
  host::runStatement(query, updateText(std::to_string(next), counter));
  return next;
}

// The sum is a loosely typed one: beyond 32 bits it is written, and only the result fails.
std::int32_t advanceDirectly(data::Recordset& rows, const std::string& counter, data::Connection& connection) {
  const Variant one = std::int16_t{1};
  connection.Execute(updateText((rows.Fields("Consec").Value() + one).toText(), counter));
  return (rows.Fields("Consec").Value() + one).toLong();
}

}  // namespace

std::int32_t TraeSiguienteConfig(std::string_view Campo, const std::shared_ptr<Object>& SQLite) {
  const auto connection = std::dynamic_pointer_cast<data::Connection>(host::required(SQLite));
  if (!connection) throw RuntimeError(error_number::kTypeMismatch);
  const std::string counter(Campo);
  auto rows = connection->Execute("SELECT * FROM consec WHERE dato = '" + counter + "'");
  if (rows->Eof()) {
    rows->Close();
    connection->Execute("INSERT INTO consec (dato, consec) VALUES( '" + counter + "', 1 )");
    return 1;
  }
  const std::int32_t current = rows->Fields("Consec").Value().toLong();
  rows->Close();
  const std::int32_t next = incremented(current);
  connection->Execute(updateText(std::to_string(next), counter));
  return next;
}

std::int32_t TraeSiguiente(std::string_view Campo, const data::ConnectionPtr& Connection, const Variant& /*nErrores*/,
                           host::QueryPtr& Query) {
  data::Connection& connection = *host::required(Connection);
  host::provideQuery(Query, Connection);
  refuseCluster(connection);
  if (beginsWithMySql(connection)) {
    const std::int32_t next = TraeSiguienteConfig(Campo, Connection);
    connection.Execute("LOCK TABLES consec WRITE");
    return next;
  }
  const std::string counter(Campo);
  std::int32_t next = 0;
  {
    const auto rows = CreaRecordSet("SELECT dato,consec FROM consec WHERE dato = '" + counter + "'", Connection);
    if (rows->Eof()) {
      next = insertFirst(counter, *Query);
    } else if (hasMarker(connection, marker::kSqlServer)) {
      next = advanceThroughQuery(rows->Fields("Consec").Value(), counter, *Query);
    } else {
      next = advanceDirectly(*rows, counter, connection);
    }
  }
  // The string may have changed while the statement ran: a host's runner may open the connection anew.
  if (beginsWithMySql(connection)) connection.Execute("UNLOCK TABLES");
  return next;
}

std::int32_t TraePosibleSiguiente(std::string_view Campo, const data::ConnectionPtr& Connection) {
  data::Recordset rows;
  rows.setCursorType(data::CursorType::Keyset);
  rows.setLockType(data::LockType::Pessimistic);
  rows.Open("SELECT Dato,Consec FROM consec WHERE DATO = '" + std::string(Campo) + "'", host::required(Connection));
  if (rows.Eof()) return 1;
  return (rows.Fields("Consec").Value() + Variant(std::int16_t{1})).toLong();
}

std::int32_t TraeSiguienteSeguro(std::string_view Campo, const data::ConnectionPtr& Connection) {
  return host::drawCounter(*host::required(Connection), Campo);
}

}  // namespace qvn::core
