// The statement runner: takes statement texts and runs them in order.
//
//   Query query;  query.Conexion(connection);
//   query.Agrega("UPDATE caja SET aplicado = 1 WHERE abono = 7");  query.Ejecuta();
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "qvn/base/variant.h"
#include "qvn/data/connection.h"

namespace qvn::host {

/// Hosts may derive from it to watch or delay the statements of the library.
class Query : public Object {
 public:
  /// Sets the connection that Ejecuta runs on.
  virtual void Conexion(data::ConnectionPtr connection);

  /// Takes one statement text; nothing runs yet.
  virtual void Agrega(std::string statement);

  /// Runs what it holds, in the order in which it was taken, and is empty afterwards, also when a statement fails:
  /// those before it are in force then, those after it are dropped.
  /// @throws ProviderError  the first failure, unless failures are collected
  /// @throws RuntimeError   91 when no connection was set, likewise
  virtual void Ejecuta();

  /// While it is set, a failing Ejecuta raises nothing: Fallo and Error tell it.
  void setRecolecta(bool isCollecting) { isCollecting_ = isCollecting; }
  [[nodiscard]] bool Recolecta() const { return isCollecting_; }

  /// Whether the last Ejecuta failed, and the error's text ("" when it did not).
  [[nodiscard]] bool Fallo() const { return failed_; }
  [[nodiscard]] const std::string& Error() const { return errorText_; }

 private:
  data::ConnectionPtr connection_;
  std::vector<std::string> statements_;
  bool isCollecting_ = false;
  bool failed_ = false;
  std::string errorText_;
};
using QueryPtr = std::shared_ptr<Query>;

/// When `query` is null, creates one on `connection` and stores it there for the caller to keep.
void provideQuery(QueryPtr& query, const data::ConnectionPtr& connection);

/// Hands the runner one statement and runs it at once.
void runStatement(Query& query, std::string statement);

}  // namespace qvn::host
