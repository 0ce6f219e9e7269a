#include "qvn/data/drivers/odbc/odbc_origin.h"

#include <sqlext.h>

#include <algorithm>
#include <array>
#include <map>

#include "qvn/base/letter_case.h"

namespace qvn::data::odbc {
namespace {

std::string attribute(SQLHSTMT statement, std::size_t column, SQLUSMALLINT what) {
  std::array<char, 512> text{};
  SQLSMALLINT length = 0;
  const SQLRETURN result = SQLColAttribute(statement, static_cast<SQLUSMALLINT>(column + 1), what, text.data(),
                                           text.size(), &length, nullptr);
  return SQL_SUCCEEDED(result) ? text.data() : "";
}

bool isAutoNumber(SQLHSTMT statement, std::size_t column) {
  SQLLEN value = SQL_FALSE;
  SQLColAttribute(statement, static_cast<SQLUSMALLINT>(column + 1), SQL_DESC_AUTO_UNIQUE_VALUE, nullptr, 0, nullptr,
                  &value);
  return value == SQL_TRUE;
}

std::vector<std::string> columnOf(OdbcLink& link, const StatementHandle& statement, SQLUSMALLINT position) {
  std::vector<std::string> names;
  std::array<char, 512> name{};
  SQLLEN size = 0;
  SQLBindCol(statement.get(), position, SQL_C_CHAR, name.data(), name.size(), &size);
  SQLRETURN result = SQL_SUCCESS;
  while (SQL_SUCCEEDED(result = SQLFetch(statement.get()))) {
    if (size != SQL_NULL_DATA) names.emplace_back(name.data());
  }
  if (result != SQL_NO_DATA) throw link.statementError(statement.get(), "No se leyó la clave de la tabla");
  return names;
}

std::vector<std::string> keyColumns(OdbcLink& link, const std::string& table) {
  constexpr SQLUSMALLINT kColumnName = 4;
  const StatementHandle statement = link.newStatement();
  std::string name = table;
  const SQLRETURN asked =
      SQLPrimaryKeys(statement.get(), nullptr, 0, nullptr, 0, reinterpret_cast<SQLCHAR*>(name.data()),
                     static_cast<SQLSMALLINT>(name.size()));
  if (!SQL_SUCCEEDED(asked)) throw link.statementError(statement.get(), "No se leyó la clave de «" + table + "»");
  return columnOf(link, statement, kColumnName);
}

// Names of the table's columns, to tell them from aliases of expressions.
std::vector<std::string> tableColumns(OdbcLink& link, const std::string& table) {
  constexpr SQLUSMALLINT kColumnName = 4;
  const StatementHandle statement = link.newStatement();
  std::string name = table;
  const SQLRETURN asked = SQLColumns(statement.get(), nullptr, 0, nullptr, 0, reinterpret_cast<SQLCHAR*>(name.data()),
                                     static_cast<SQLSMALLINT>(name.size()), nullptr, 0);
  if (!SQL_SUCCEEDED(asked))
    throw link.statementError(statement.get(), "No se leyeron las columnas de «" + table + "»");
  return columnOf(link, statement, kColumnName);
}

bool holds(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::any_of(names, [&](const std::string& known) { return equalIgnoringCase(known, name); });
}

}  // namespace

std::vector<ColumnOrigin> statedOrigins(const OdbcLink& link, SQLHSTMT statement, const std::vector<Column>& columns,
                                        std::string_view sql) {
  std::vector<ColumnOrigin> origins(columns.size());
  if (link.engine() == EngineKind::Access) return origins;
  for (std::size_t i = 0; i < origins.size(); ++i) {
    origins[i].table = attribute(statement, i, SQL_DESC_BASE_TABLE_NAME);
    origins[i].column = attribute(statement, i, SQL_DESC_BASE_COLUMN_NAME);
    if (origins[i].table.empty()) origins[i].column.clear();
    origins[i].isAutoNumber = isAutoNumber(statement, i);
  }
  const bool isStated = std::ranges::any_of(origins, [](const ColumnOrigin& origin) { return !origin.table.empty(); });
  const std::string table = isStated ? "" : singleTable(sql);
  if (table.empty()) return origins;
  for (std::size_t i = 0; i < origins.size(); ++i) {
    origins[i].table = table;
    origins[i].column = columns[i].name;
  }
  return origins;
}

void markKeys(OdbcLink& link, std::vector<ColumnOrigin>& origins) {
  std::map<std::string, std::vector<std::string>> keys;
  std::map<std::string, std::vector<std::string>> columns;
  for (ColumnOrigin& origin : origins) {
    if (origin.table.empty()) continue;
    if (!columns.contains(origin.table)) {
      columns[origin.table] = tableColumns(link, origin.table);
      keys[origin.table] = keyColumns(link, origin.table);
    }
    if (!holds(columns[origin.table], origin.column)) {
      origin = {};
      continue;
    }
    origin.isKey = holds(keys[origin.table], origin.column);
    origin.table = link.quoted(origin.table);
    origin.column = link.quoted(origin.column);
  }
}

}  // namespace qvn::data::odbc
