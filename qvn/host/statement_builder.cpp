#include "qvn/host/statement_builder.h"

#include <algorithm>
#include <array>
#include <utility>

#include "qvn/base/letter_case.h"
#include "qvn/base/runtime_error.h"
#include "qvn/host/counter_draw.h"
#include "qvn/host/require.h"

namespace qvn::host {
namespace {

[[noreturn]] void refuse(const char* text) { throw RuntimeError(error_number::kInvalidCall, text); }

}  // namespace

void StatementBuilder::Limpia() {
  table_.clear();
  hasOtherTable_ = false;
  assignments_.clear();
  condition_.clear();
  action_ = Action::None;
  statement_.clear();
}

void StatementBuilder::AgregaCampo(std::string_view table, std::string field, Variant value) {
  const std::string name = lowerCase(table);
  if (table_.empty()) table_ = name;
  if (name != table_) hasOtherTable_ = true;
  const auto given = std::ranges::find_if(
      assignments_, [&](const Assignment& known) { return equalIgnoringCase(known.field, field); });
  if (given == assignments_.end()) {
    assignments_.push_back({std::move(field), std::move(value)});
  } else {
    given->value = std::move(value);
  }
}

void StatementBuilder::Accion(std::string_view action) {
  static constexpr auto kActions = std::to_array<std::pair<std::string_view, Action>>(
      {{"INSERT", Action::Insert}, {"UPDATE", Action::Update}, {"DELETE", Action::Delete}});
  const auto* known =
      std::ranges::find_if(kActions, [&](const auto& row) { return equalIgnoringCase(row.first, action); });
  if (known == kActions.end()) refuse("La acción de la sentencia debe ser INSERT, UPDATE o DELETE");
  action_ = known->second;
}

std::string StatementBuilder::insertText() const {
  std::string fields;
  std::string values;
  for (const Assignment& assignment : assignments_) {
    const char* separator = fields.empty() ? "" : ", ";
    fields.append(separator).append(assignment.field);
    values.append(separator).append(connection_->Literal(assignment.value));
  }
  return "INSERT INTO " + table_ + " (" + fields + ") VALUES (" + values + ")";
}

std::string StatementBuilder::updateText() const {
  std::string text = "UPDATE " + table_ + " SET ";
  const char* separator = "";
  for (const Assignment& assignment : assignments_) {
    text.append(separator).append(assignment.field).append(" = ").append(connection_->Literal(assignment.value));
    separator = ", ";
  }
  return text + " WHERE " + condition_;
}

const std::string& StatementBuilder::Arma() {
  static_cast<void>(required(connection_));
  if (action_ == Action::None) refuse("Falta la acción de la sentencia; indíquela con Accion");
  if (assignments_.empty()) refuse("La sentencia no tiene campos; agréguelos con AgregaCampo");
  if (hasOtherTable_) refuse("Los campos de una sentencia deben ser de una sola tabla; empiece otra con Limpia");
  if (action_ != Action::Insert && condition_.find_first_not_of(' ') == std::string::npos) {
    refuse("Falta la condición: la sentencia tocaría todos los registros; indíquela con Condicion");
  }
  switch (action_) {
    case Action::Insert:
      statement_ = insertText();
      break;
    case Action::Update:
      statement_ = updateText();
      break;
    default:
      statement_ = "DELETE FROM " + table_ + " WHERE " + condition_;
  }
  return statement_;
}

void StatementBuilder::Ejecuta() {
  static_cast<void>(required(connection_));
  if (statement_.empty()) refuse("No hay sentencia armada; llame a Arma antes de Ejecuta");
  connection_->Execute(statement_);
}

std::int32_t StatementBuilder::SiguienteId(std::string_view table) {
  data::Connection& connection = *required(connection_);
  const std::string name = lowerCase(table);
  while (true) {
    const std::int32_t number = drawCounter(connection, name);
    const Variant last = connection.Execute("SELECT MAX(id) FROM " + name)->Fields(0).Value();
    if (last.isNull() || last.toLong() < number) return number;
    raiseCounter(connection, name, last.toLong());
  }
}

}  // namespace qvn::host
