// The statement builder: composes one INSERT, UPDATE or DELETE from fields and values, and runs it.
//
//   StatementBuilder builder;  builder.Conexion(connection);
//   builder.AgregaCampo("LOTES", "cantsal", 8.0);
//   builder.Condicion("id = 12");  builder.Accion("UPDATE");
//   builder.Arma();     // UPDATE lotes SET cantsal = 8 WHERE id = 12
//   builder.Ejecuta();
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/base/variant.h"
#include "qvn/data/connection.h"

namespace qvn::host {

class StatementBuilder : public Object {
 public:
  /// Sets the connection whose engine the values are written for, and that the statement runs on.
  void Conexion(data::ConnectionPtr connection) { connection_ = std::move(connection); }

  /// Starts a new statement: no fields, no condition, no action.
  void Limpia();

  /// Gives a field its value. A field given twice keeps its first place and its last value. Table names are written in
  /// lower case, as they stand on servers that tell the case of names apart.
  void AgregaCampo(std::string_view table, std::string field, Variant value);

  /// What follows WHERE; the text enters the statement as it is.
  void Condicion(std::string condition) { condition_ = std::move(condition); }

  /// "INSERT", "UPDATE" or "DELETE", in any case. Throws RuntimeError 5 for another one.
  void Accion(std::string_view action);

  /// Composes the statement and gives its text: text values quoted and escaped for the engine, dates as its literals,
  /// numbers with ".", Booleans as 1 and 0, Null and Empty as NULL.
  /// @throws RuntimeError   5 without an action or a field, with fields of several tables, or for an UPDATE or DELETE
  ///                        without a condition, which would take every row; 13 for an array or an object; 91 without
  ///                        a connection
  /// @throws ProviderError  kObjectClosed
  const std::string& Arma();

  /// Runs the composed statement; the fields stay until Limpia. Throws ProviderError, RuntimeError 91 without a
  /// connection, 5 when nothing was composed.
  void Ejecuta();

  /// The next row number of a table, from the counter of that name (counter_draw.h): two stations never get the same
  /// one. It is above every `id` that the table has, also those that something else has numbered.
  /// @throws ProviderError  the table has no `id`, there is no table consec, or what else the engine reports
  /// @throws RuntimeError   6 when the numbers are used up
  std::int32_t SiguienteId(std::string_view table);

 private:
  struct Assignment {
    std::string field;
    Variant value;
  };
  enum class Action { None, Insert, Update, Delete };

  [[nodiscard]] std::string insertText() const;
  [[nodiscard]] std::string updateText() const;

  data::ConnectionPtr connection_;
  std::string table_;
  bool hasOtherTable_ = false;
  std::vector<Assignment> assignments_;
  std::string condition_;
  Action action_ = Action::None;
  std::string statement_;
};

}  // namespace qvn::host
