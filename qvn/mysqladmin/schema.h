// What a MySQL database holds, as a faithful dump needs to know it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "qvn/data/connection.h"

namespace qvn::mysqladmin {

enum class TableKind { Table, View, Sequence };

struct DatabaseTable {
  std::string name;
  TableKind kind = TableKind::Table;
  std::string engine;
  std::int64_t estimatedRows = 0;

  /// A snapshot of the engine's rows does not change while others write.
  [[nodiscard]] bool hasSnapshots() const { return engine == "InnoDB"; }
};

/// How a column's value is written.
enum class ColumnForm {
  Text,    ///< between quotes, special characters escaped
  Number,  ///< as it is
  Bytes,   ///< in hexadecimal digits
};

struct DatabaseColumn {
  std::string name;
  ColumnForm form = ColumnForm::Text;
  std::string expression;  ///< what to select so that nothing of the value is lost
};

/// Tables, views and sequences of the session's database, by name. Throws ProviderError, as the next one does.
std::vector<DatabaseTable> readTables(const data::ConnectionPtr& connection);

/// The columns that an INSERT fills, in their order: hidden ones among them, generated ones not.
std::vector<DatabaseColumn> readColumns(const std::string& table, const data::ConnectionPtr& connection);

/// The texts in the first column of a statement's rows.
std::vector<std::string> readNames(const std::string& sql, const data::ConnectionPtr& connection);

}  // namespace qvn::mysqladmin
