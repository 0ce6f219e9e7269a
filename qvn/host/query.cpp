#include "qvn/host/query.h"

#include <utility>

#include "qvn/base/runtime_error.h"

namespace qvn::host {

void Query::Conexion(data::ConnectionPtr connection) { connection_ = std::move(connection); }

void Query::Agrega(std::string statement) { statements_.push_back(std::move(statement)); }

void Query::Ejecuta() {
  const std::vector<std::string> statements = std::exchange(statements_, {});
  failed_ = false;
  errorText_.clear();
  try {
    if (!connection_) throw RuntimeError(error_number::kObjectNotSet, "Query no tiene conexión; asígnela con Conexion");
    for (const std::string& statement : statements) connection_->Execute(statement);
  } catch (const RuntimeError& error) {
    failed_ = true;
    errorText_ = error.description();
    if (!isCollecting_) throw;
  }
}

void provideQuery(QueryPtr& query, const data::ConnectionPtr& connection) {
  if (query) return;
  auto created = std::make_shared<Query>();
  created->Conexion(connection);
  query = std::move(created);
}

void runStatement(Query& query, std::string statement) {
  query.Agrega(std::move(statement));
  query.Ejecuta();
}

}  // namespace qvn::host
