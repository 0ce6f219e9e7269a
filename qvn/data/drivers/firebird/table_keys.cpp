#include "qvn/data/drivers/firebird/table_keys.h"

#include <map>
#include <string>

#include "qvn/data/drivers/firebird/firebird_statement.h"
#include "qvn/data/sql_text.h"

namespace qvn::data::firebird {
namespace {

struct KeyColumn {
  bool isKey;
  bool isAutoNumber;
};
using TableKeys = std::map<std::string, KeyColumn>;  // by the column's name

TableKeys keysOf(FirebirdLink& link, const std::string& table) {
  const std::string sql =
      "SELECT TRIM(TRAILING FROM f.RDB$FIELD_NAME), f.RDB$IDENTITY_TYPE, (SELECT COUNT(*) "
      "FROM RDB$RELATION_CONSTRAINTS c JOIN RDB$INDEX_SEGMENTS s ON s.RDB$INDEX_NAME = c.RDB$INDEX_NAME "
      "WHERE c.RDB$RELATION_NAME = f.RDB$RELATION_NAME AND c.RDB$CONSTRAINT_TYPE = 'PRIMARY KEY' "
      "AND s.RDB$FIELD_NAME = f.RDB$FIELD_NAME) FROM RDB$RELATION_FIELDS f WHERE f.RDB$RELATION_NAME = " +
      doubledQuotes(table, '\'');
  TableKeys keys;
  const std::unique_ptr<Cursor> rows = query(link, sql);
  while (rows->next()) {
    Variant name;
    Variant identity;
    Variant parts;
    rows->read(0, name);
    rows->read(1, identity);
    rows->read(2, parts);
    keys[name.toText()] = {parts.toLongLong() > 0, !identity.isNull()};
  }
  return keys;
}

}  // namespace

std::vector<ColumnOrigin> columnOrigins(FirebirdLink& link, Firebird::IMessageMetadata& metadata) {
  Status status;  // the metadata are at hand: these calls do not fail
  std::vector<ColumnOrigin> origins(metadata.getCount(status.get()));
  std::map<std::string, TableKeys> tables;
  for (unsigned i = 0; i < origins.size(); ++i) {
    const std::string table = metadata.getRelation(status.get(), i);
    const std::string column = metadata.getField(status.get(), i);
    if (table.empty() || column.empty()) continue;
    if (!tables.contains(table)) tables[table] = keysOf(link, table);
    const TableKeys& keys = tables[table];
    const auto key = keys.find(column);
    // A procedure's column: what it gives is no row that could be saved.
    if (key == keys.end()) continue;
    origins[i] = {doubledQuotes(table, '"'), doubledQuotes(column, '"'), key->second.isKey, key->second.isAutoNumber};
  }
  return origins;
}

}  // namespace qvn::data::firebird
