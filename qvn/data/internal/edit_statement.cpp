#include "qvn/data/internal/edit_statement.h"

#include <algorithm>

#include "qvn/data/provider_error.h"

namespace qvn::data::internal {
namespace {

[[noreturn]] void refuse(const std::string& reason) {
  throw ProviderError(provider_number::kNotSupported, "No es posible guardar el registro: " + reason);
}

// The one table whose rows are edited.
const std::string& editedTable(const EditContext& context) {
  const std::string* table = nullptr;
  for (const ColumnOrigin& origin : context.origins) {
    if (origin.table.empty()) continue;
    if (table != nullptr && *table != origin.table) refuse("los campos vienen de varias tablas");
    table = &origin.table;
  }
  if (table == nullptr) refuse("los campos no vienen de una tabla");
  return *table;
}

void appendCondition(std::string& where, const EditContext& context, std::size_t column, const Variant& value) {
  where.append(where.empty() ? " WHERE " : " AND ").append(context.origins[column].column);
  if (value.isNull()) {
    where.append(" IS NULL");
  } else {
    where.append(" = ").append(context.session.literal(value, context.columns[column].type));
  }
}

std::string keyCondition(const EditContext& context, const OriginalValue& original) {
  std::string where;
  for (std::size_t i = 0; i < context.origins.size(); ++i) {
    if (context.origins[i].isKey) appendCondition(where, context, i, original(i));
  }
  if (where.empty()) refuse("la consulta no trae la clave primaria de la tabla");
  return where;
}

// A Single's decimal text does not compare equal to the stored value on every engine.
bool isComparable(FieldType type) { return type != FieldType::Single; }

}  // namespace

std::string updateStatement(const EditContext& context, const Edits& edits, const OriginalValue& original) {
  std::string sql = "UPDATE " + editedTable(context) + " SET ";
  std::string where = keyCondition(context, original);
  bool isFirst = true;
  for (std::size_t i = 0; i < edits.size(); ++i) {
    if (!edits[i]) continue;
    if (!isFirst) sql.append(", ");
    sql.append(context.origins[i].column)
        .append(" = ")
        .append(context.session.literal(*edits[i], context.columns[i].type));
    if (!context.origins[i].isKey && isComparable(context.columns[i].type)) {
      appendCondition(where, context, i, original(i));
    }
    isFirst = false;
  }
  return sql + where;
}

std::string insertStatement(const EditContext& context, const Edits& edits) {
  std::string names;
  std::string values;
  std::string numberClause;
  for (std::size_t i = 0; i < edits.size(); ++i) {
    if (!edits[i]) {
      if (context.origins[i].isAutoNumber) numberClause = context.session.numberClause(context.origins[i].column);
      continue;
    }
    if (!names.empty()) {
      names.append(", ");
      values.append(", ");
    }
    names.append(context.origins[i].column);
    values.append(context.session.literal(*edits[i], context.columns[i].type));
  }
  if (names.empty()) refuse("el registro nuevo no tiene ningún valor");
  return "INSERT INTO " + editedTable(context) + " (" + names + ") VALUES (" + values + ")" + numberClause;
}

std::string deleteStatement(const EditContext& context, const OriginalValue& original) {
  return "DELETE FROM " + editedTable(context) + keyCondition(context, original);
}

}  // namespace qvn::data::internal
