#include "qvn/ledger/statement_runner.h"

namespace qvn::ledger {

void provideQuery(host::QueryPtr& query, const data::ConnectionPtr& connection) {
  if (query) return;
  auto created = std::make_shared<host::Query>();
  created->Conexion(connection);
  query = std::move(created);
}

void runStatement(host::Query& query, std::string statement) {
  query.Agrega(std::move(statement));
  query.Ejecuta();
}

}  // namespace qvn::ledger
