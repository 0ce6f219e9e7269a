// What a database engine must offer: connect, run a statement, step through its rows, describe its columns, report
// errors. Everything that is the same for all engines is built once above this interface.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/base/variant.h"
#include "qvn/data/connection_string.h"
#include "qvn/data/field_type.h"
#include "qvn/data/property_bag.h"

namespace qvn::data {

/// One column of a result.
struct Column {
  std::string name;
  FieldType type = FieldType::VarWChar;
  std::int64_t definedSize = 0;  ///< characters or bytes; 0 when the engine does not say
  int precision = 0;             ///< decimal digits of a Numeric
  int scale = 0;                 ///< digits after the point of a Numeric
};

/// Where a column of a result comes from; all empty for an expression.
struct ColumnOrigin {
  std::string table;   ///< quoted for use in a statement, with its schema where the engine has one
  std::string column;  ///< quoted for use in a statement
  bool isKey = false;  ///< part of the table's primary key
  bool isAutoNumber = false;
};

/// Rows of one statement, read from the first to the last.
class Cursor {
 public:
  virtual ~Cursor() = default;

  /// The same for all rows; the reference lives as long as the cursor.
  [[nodiscard]] virtual const std::vector<Column>& columns() const = 0;
  /// Asked for only when a row is about to be edited; one entry per column.
  [[nodiscard]] virtual std::vector<ColumnOrigin> origins() = 0;
  /// Steps to the next row; false after the last. Throws ProviderError; afterwards there is no current row and a
  /// further call gives false.
  virtual bool next() = 0;
  /// Writes the current row's value of a column into `value`, using again the memory of a text that it holds. The row
  /// stays readable while other statements run on the session, until the next call of next().
  virtual void read(std::size_t column, Variant& value) = 0;
};

/// Outcome of one statement.
struct StatementResult {
  std::unique_ptr<Cursor> cursor;   ///< null for a statement that yields no rows
  std::int64_t affectedRows = 0;    ///< rows that matched, for a statement that writes
  std::int64_t insertedNumber = 0;  ///< automatic number of the last inserted row, 0 when there is none
};

/// An open connection to an engine. The destructor closes it and never throws; cursors are destroyed before it.
class Session {
 public:
  virtual ~Session() = default;

  /// Runs one statement. It is in force when the call returns, unless the statement opened a transaction. Rows are
  /// streamed: memory does not grow with their number while no other statement runs on the session. A cursor that is
  /// still open when another statement starts stays valid. Throws ProviderError.
  virtual StatementResult execute(std::string_view sql) = 0;

  /// Longest time that a statement may take until its first row; zero waits for ever. A statement that exceeds it ends
  /// with kTimeout.
  virtual void setCommandTimeout(std::chrono::seconds timeout) = 0;

  /// What an INSERT statement ends with so that it yields a row with the automatic number of `column`, which is quoted
  /// for use in a statement; "" for an engine whose results tell it in insertedNumber.
  [[nodiscard]] virtual std::string numberClause(const std::string& /*column*/) const { return {}; }

  /// Product and version of the engine behind the session, such as "SQLite 3.40.1". Throws ProviderError.
  [[nodiscard]] virtual std::string engineVersion() = 0;

  /// True when the engine is one of several that hold the same data, where the locks of tables and of names are known
  /// to one of them only.
  [[nodiscard]] virtual bool isClustered() const { return false; }

  /// `value` as the engine's literal for a column of this type, such as 'O''Higgins', 12.5 or NULL. Numbers have "." as
  /// the separator whatever the regional settings.
  [[nodiscard]] virtual std::string literal(const Variant& value, FieldType type) const = 0;
};

/// What a driver needs to connect.
struct ConnectRequest {
  const ConnectionString& parameters;
  std::string user;        ///< overrides the connection string's when not empty
  std::string password;    ///< overrides the connection string's when not empty
  PropertyBag properties;  ///< settings of the provider, such as "Jet OLEDB:Database Password"
  std::chrono::seconds connectTimeout{15};
  std::chrono::seconds commandTimeout{30};
};

class Driver {
 public:
  virtual ~Driver() = default;
  /// Name for people and for error sources, such as "SQLite".
  [[nodiscard]] virtual std::string_view name() const = 0;
  /// True when this driver serves the connection string.
  [[nodiscard]] virtual bool accepts(const ConnectionString& parameters) const = 0;
  /// Throws ProviderError: kLoginRefused for a wrong user or password, kUnspecified when the server cannot be reached;
  /// the text names the server or file, never the password.
  [[nodiscard]] virtual std::unique_ptr<Session> connect(const ConnectRequest& request) const = 0;
};

}  // namespace qvn::data
