#include "qvn/host/statement_builder.h"

#include <gtest/gtest.h>

#include "qvn/base/runtime_error.h"
#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"
#include "tests/support/test_database.h"

namespace qvn::host {
namespace {

using test::errorNumber;

class Builder : public testing::TestWithParam<test::Engine> {
 protected:
  Builder() {
    const test::Engine& engine = GetParam();
    connection_->Execute("CREATE TABLE lotes (id INTEGER NOT NULL PRIMARY KEY, texto VARCHAR(40), cantidad " +
                         engine.typeName("DOUBLE") + ", activo INTEGER, dia DATE, momento " +
                         engine.typeName("DATETIME") + ")");
    builder_.Conexion(connection_);
  }
  Variant stored(const std::string& field) {
    return connection_->Execute("SELECT " + field + " FROM lotes")->Fields(0).Value();
  }

  std::unique_ptr<test::TestDatabase> database_ = GetParam().create();
  data::ConnectionPtr connection_ = database_->connect();
  StatementBuilder builder_;
};

TEST_P(Builder, ValuesComeBackAsTheyWereGiven) {
  const test::LocaleGuard locale("es_ES.UTF-8");
  const Date moment = Date::fromCivil(2012, 3, 7, {10, 42, 7});
  struct Row {
    const char* field;
    Variant value;
  };
  const Row kRows[] = {
      {"texto", "O'Higgins \\ \"ñ€\" 🛒"},
      {"texto", "termina en \\"},
      {"texto", Null{}},
      {"cantidad", 1234.5},
      {"cantidad", 5.55e-17},
      {"cantidad", -1e20},
      {"activo", true},
      {"dia", Date::fromCivil(2012, 3, 7)},
      {"momento", moment},
      {"momento", Date::fromCivil(1899, 12, 30)},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(std::string(row.field) + " = " + concatenate(row.value, {}));
    connection_->Execute("DELETE FROM lotes");
    builder_.Limpia();
    builder_.Accion("insert");
    builder_.AgregaCampo("LOTES", "id", 1);
    builder_.AgregaCampo("LOTES", row.field, row.value);
    builder_.Arma();
    builder_.Ejecuta();
    const Variant back = stored(row.field);
    if (row.value.isNull()) {
      EXPECT_TRUE(back.isNull());
    } else if (row.value.type() == VariantType::Boolean) {
      EXPECT_EQ(back.toLong(), 1);
    } else {
      EXPECT_EQ(compare(back, row.value), std::weak_ordering::equivalent) << back.toText();
    }
  }
}

TEST_P(Builder, ChangesAndDeletesOnlyWhatTheConditionNames) {
  connection_->Execute("INSERT INTO lotes (id, cantidad) VALUES (1, 5)");
  connection_->Execute("INSERT INTO lotes (id, cantidad) VALUES (2, 7)");
  builder_.AgregaCampo("LOTES", "cantidad", 0.0);
  builder_.AgregaCampo("Lotes", "CANTIDAD", 8.25);
  builder_.Condicion("id = 2");
  builder_.Accion("UPDATE");
  builder_.Arma();
  builder_.Ejecuta();
  EXPECT_EQ(connection_->Execute("SELECT SUM(cantidad) FROM lotes")->Fields(0).Value().toDouble(), 13.25);
  builder_.Accion("DELETE");
  EXPECT_EQ(builder_.Arma(), "DELETE FROM lotes WHERE id = 2");
  builder_.Ejecuta();
  EXPECT_EQ(stored("id").toLong(), 1);
}

TEST_P(Builder, RowNumbersAreAboveEveryOther) {
  connection_->Execute("CREATE TABLE consec (dato VARCHAR(20) NOT NULL PRIMARY KEY, consec INTEGER)");
  StatementBuilder other;
  const auto station = database_->connect();
  other.Conexion(station);
  EXPECT_EQ(builder_.SiguienteId("LOTES"), 1);
  EXPECT_EQ(other.SiguienteId("lotes"), 2);
  connection_->Execute("INSERT INTO lotes (id) VALUES (57)");
  EXPECT_EQ(builder_.SiguienteId("lotes"), 58);
  EXPECT_EQ(other.SiguienteId("lotes"), 59);
  connection_->Execute("DELETE FROM lotes");
  EXPECT_EQ(builder_.SiguienteId("lotes"), 60);
  EXPECT_EQ(errorNumber([&] { builder_.SiguienteId("nada"); }), data::provider_number::kNoSuchTable);
}

INSTANTIATE_TEST_SUITE_P(Engines, Builder, testing::ValuesIn(test::engines()), test::engineName);

TEST(StatementBuilder, RefusesHalfAStatement) {
  struct Row {
    const char* why;
    const char* action;
    std::vector<std::string> tables;
    const char* condition;
  };
  const Row kRows[] = {
      {"no action", nullptr, {"lotes"}, "id = 1"},         {"no fields", "INSERT", {}, ""},
      {"two tables", "INSERT", {"lotes", "prods"}, ""},    {"an update of all rows", "UPDATE", {"lotes"}, " "},
      {"a deletion of all rows", "DELETE", {"lotes"}, ""},
  };
  const auto connection = data::Connection::create();
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    StatementBuilder builder;
    builder.Conexion(connection);
    for (const std::string& table : row.tables) builder.AgregaCampo(table, "campo" + table, 1);
    builder.Condicion(row.condition);
    if (row.action != nullptr) builder.Accion(row.action);
    EXPECT_EQ(errorNumber([&] { builder.Arma(); }), error_number::kInvalidCall);
    EXPECT_EQ(errorNumber([&] { builder.Ejecuta(); }), error_number::kInvalidCall);
  }
  StatementBuilder builder;
  EXPECT_EQ(errorNumber([&] { builder.Accion("TRUNCATE"); }), error_number::kInvalidCall);
  EXPECT_EQ(errorNumber([&] { builder.Arma(); }), error_number::kObjectNotSet);
  EXPECT_EQ(errorNumber([&] { builder.SiguienteId("lotes"); }), error_number::kObjectNotSet);
}

}  // namespace
}  // namespace qvn::host
