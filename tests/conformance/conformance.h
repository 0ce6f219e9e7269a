// Base of the suite that every driver has to pass: one empty database and one open connection for each test.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "qvn/data/connection.h"
#include "tests/support/error_of.h"
#include "tests/support/test_database.h"

namespace qvn::test {

class Conformance : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    database_ = GetParam().create();
    connection_ = database_->connect();
  }

  data::RecordsetPtr open(std::string_view sql, data::CursorLocation location = data::CursorLocation::Server,
                          data::CursorType type = data::CursorType::ForwardOnly,
                          data::LockType lock = data::LockType::ReadOnly) {
    return openOn(connection_, sql, location, type, lock);
  }
  static data::RecordsetPtr openOn(const data::ConnectionPtr& connection, std::string_view sql,
                                   data::CursorLocation location, data::CursorType type, data::LockType lock) {
    auto rows = std::make_shared<data::Recordset>();
    rows->setCursorLocation(location);
    rows->setCursorType(type);
    rows->setLockType(lock);
    rows->Open(sql, connection);
    return rows;
  }
  /// Rows that can be edited, held on the client.
  data::RecordsetPtr openForEditing(std::string_view sql) {
    return open(sql, data::CursorLocation::Client, data::CursorType::Keyset, data::LockType::Pessimistic);
  }

  /// The products that most tests read: three rows, the second one with a NULL price.
  void createProducts() {
    connection_->Execute(
        "CREATE TABLE prods (articulo VARCHAR(20) NOT NULL PRIMARY KEY, nombre VARCHAR(60), precio1 DOUBLE PRECISION, "
        "existencia INTEGER)");
    insert("prods (articulo, nombre, precio1, existencia)",
           {"'A1', 'Tornillo', 1.5, 100", "'B2', 'Piñón', NULL, 7", "'C3', 'Cañería de ½\"', 80.25, 0"});
  }

  /// Inserts rows in one statement, or in as many as the engine takes; `into` is a table, with its columns or without.
  void insert(const std::string& into, const std::vector<std::string>& rows) {
    constexpr std::size_t kRowsPerStatement = 100;
    const SqlForms& forms = GetParam().forms;
    for (std::size_t i = 0; i < rows.size();) {
      std::string sql;
      for (const std::size_t end = std::min(rows.size(), i + kRowsPerStatement); i < end; ++i) {
        const bool isFirst = sql.empty();
        if (isFirst || !forms.insertsManyRows) sql.append("INSERT INTO ").append(into).append(" VALUES ");
        if (!isFirst && forms.insertsManyRows) sql.append(", ");
        sql.append("(").append(rows[i]).append(forms.insertsManyRows ? ")" : "); ");
      }
      connection_->Execute(forms.insertsManyRows ? sql : "EXECUTE BLOCK AS BEGIN " + sql + "END");
    }
  }

  /// "SELECT value", as the engine writes it.
  static std::string select(const std::string& value) { return "SELECT " + value + GetParam().forms.fromNoTable; }

  /// First value of the first row, as text; "(null)" for NULL.
  std::string scalar(std::string_view sql) {
    const auto rows = open(sql);
    const Variant& value = rows->Fields(0).Value();
    return value.isNull() ? "(null)" : value.toText();
  }

  // The database goes last: a session may still be reading it.
  std::unique_ptr<TestDatabase> database_;
  data::ConnectionPtr connection_;
};

}  // namespace qvn::test
