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

struct NameAndType {
  std::string name;
  std::string type;
};

// Names, and types where `typePosition` is not 0, from the rows of a catalogue function.
std::vector<NameAndType> readCatalogue(OdbcLink& link, SQLHSTMT statement, SQLUSMALLINT typePosition) {
  constexpr SQLUSMALLINT kColumnName = 4;
  std::vector<NameAndType> rows;
  std::array<char, 512> name{};
  std::array<char, 512> type{};
  SQLLEN nameSize = 0;
  SQLLEN typeSize = 0;
  SQLBindCol(statement, kColumnName, SQL_C_CHAR, name.data(), name.size(), &nameSize);
  if (typePosition != 0) SQLBindCol(statement, typePosition, SQL_C_CHAR, type.data(), type.size(), &typeSize);
  SQLRETURN result = SQL_SUCCESS;
  while (SQL_SUCCEEDED(result = SQLFetch(statement))) {
    if (nameSize != SQL_NULL_DATA) rows.push_back({name.data(), type.data()});
  }
  if (result != SQL_NO_DATA) throw link.statementError(statement, "No se leyó la descripción de la tabla");
  return rows;
}

std::vector<NameAndType> keyColumns(OdbcLink& link, const std::string& table) {
  const StatementHandle statement = link.newStatement();
  std::string name = table;
  const SQLRETURN asked =
      SQLPrimaryKeys(statement.get(), nullptr, 0, nullptr, 0, reinterpret_cast<SQLCHAR*>(name.data()),
                     static_cast<SQLSMALLINT>(name.size()));
  if (!SQL_SUCCEEDED(asked)) throw link.statementError(statement.get(), "No se leyó la clave de «" + table + "»");
  return readCatalogue(link, statement.get(), 0);
}

// The table's columns, to tell them from aliases of expressions.
std::vector<NameAndType> tableColumns(OdbcLink& link, const std::string& table) {
  constexpr SQLUSMALLINT kTypeName = 6;
  const StatementHandle statement = link.newStatement();
  std::string name = table;
  const SQLRETURN asked = SQLColumns(statement.get(), nullptr, 0, nullptr, 0, reinterpret_cast<SQLCHAR*>(name.data()),
                                     static_cast<SQLSMALLINT>(name.size()), nullptr, 0);
  if (!SQL_SUCCEEDED(asked))
    throw link.statementError(statement.get(), "No se leyeron las columnas de «" + table + "»");
  return readCatalogue(link, statement.get(), kTypeName);
}

const NameAndType* find(const std::vector<NameAndType>& rows, const std::string& name) {
  const auto found =
      std::ranges::find_if(rows, [&](const NameAndType& row) { return equalIgnoringCase(row.name, name); });
  return found == rows.end() ? nullptr : &*found;
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
  struct Table {
    std::vector<NameAndType> columns;
    std::vector<NameAndType> keys;
  };
  std::map<std::string, Table> tables;
  for (ColumnOrigin& origin : origins) {
    if (origin.table.empty()) continue;
    const auto [entry, isNew] = tables.try_emplace(origin.table);
    Table& table = entry->second;
    if (isNew) table = {tableColumns(link, origin.table), keyColumns(link, origin.table)};
    const NameAndType* const column = find(table.columns, origin.column);
    if (column == nullptr) {
      origin = {};
      continue;
    }
    origin.isKey = find(table.keys, origin.column) != nullptr;
    // A key declared just INTEGER numbers its rows; the driver does not tell.
    const bool isRowNumber = link.engine() == EngineKind::Sqlite && origin.isKey && table.keys.size() == 1 &&
                             equalIgnoringCase(column->type, "INTEGER");
    origin.isAutoNumber = origin.isAutoNumber || isRowNumber;
    origin.table = link.quoted(origin.table);
    origin.column = link.quoted(origin.column);
  }
}

}  // namespace qvn::data::odbc
