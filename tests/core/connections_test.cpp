// Recordset kinds, date literals and database files.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "qvn/core/access_database.h"
#include "qvn/core/date_literal.h"
#include "qvn/core/recordsets.h"
#include "qvn/data/drivers/built_in.h"
#include "tests/support/alias_driver.h"
#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::core {
namespace {

using data::CursorLocation;
using data::CursorType;
using data::LockType;

TEST(Recordsets, KindsAreAsHostsKnowThem) {
  const auto connection = test::connectionOfDialect("MySQL");
  struct Row {
    const char* name;
    data::RecordsetPtr rows;
    CursorLocation location;
    CursorType type;
    LockType lock;
  };
  const std::string sql = "SELECT 1 AS a UNION SELECT 2";
  const Row kRows[] = {
      {"CreaRecordSet", CreaRecordSet(sql, connection, true), CursorLocation::Server, CursorType::ForwardOnly,
       LockType::ReadOnly},
      {"CreaRecordSetEnCliente", CreaRecordSetEnCliente(sql, connection), CursorLocation::Client, CursorType::Keyset,
       LockType::ReadOnly},
      {"RecordWrite", RecordWrite(sql, connection), CursorLocation::Client, CursorType::Keyset, LockType::Pessimistic},
      {"RstRO", RstRO(sql, connection, true), CursorLocation::Client, CursorType::ForwardOnly, LockType::ReadOnly},
      {"FastRst", FastRst(sql, connection), CursorLocation::Server, CursorType::ForwardOnly, LockType::ReadOnly},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(row.rows->cursorLocation(), row.location);
    EXPECT_EQ(row.rows->cursorType(), row.type);
    EXPECT_EQ(row.rows->lockType(), row.lock);
    EXPECT_EQ(row.rows->RecordCount(), row.location == CursorLocation::Client ? 2 : -1);
  }
  EXPECT_EQ(test::errorNumber([&] { RecordWrite("SELECT * FROM nada", connection); }),
            data::provider_number::kNoSuchTable);
  EXPECT_EQ(test::errorNumber([&] { FastRst(sql, nullptr); }), error_number::kObjectNotSet);
}

TEST(FechaSQL, FormByDialect) {
  struct Row {
    const char* connectionString;  // null: no connection
    const char* expected;
    const char* locale = "es_MX.UTF-8";
  };
  static constexpr Row kRows[] = {
      {nullptr, "'2012-03-07'"},
      {"Provider=SQLNCLI10;Server=s", "'20120307'"},
      {"provider=sqlncli10", "'20120307'"},
      {"MySQL;SERVER=s;Provider=SQLNCLI", "'20120307'"},
      {"MySQL;SERVER=s", "'2012-03-07'"},
      {"Driver={MySQL};Data Source=Jet.mdb", "'2012-03-07'"},
      {"Provider=IbOleDb;Location=Jet", "'2012-03-07'"},
      {"Provider=Microsoft.Jet.OLEDB.4.0", "#03/07/2012#"},
      {"Provider=Microsoft.Jet.OLEDB.4.0", "#03.07.2012#", "de_DE.UTF-8"},
      {"Provider=SQLite", "'2012-03-07'"},
      {"", "'2012-03-07'"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.connectionString == nullptr ? "none" : row.connectionString);
    const test::LocaleGuard locale(row.locale);
    data::ConnectionPtr connection;
    if (row.connectionString != nullptr) {
      connection = data::Connection::create();
      connection->setConnectionString(row.connectionString);
    }
    EXPECT_EQ(FechaSQL(Date::fromCivil(2012, 3, 7, {23, 59, 59}), connection), row.expected);
  }
  for (const Variant& value : {Variant(Null{}), Variant("mañana"), Variant(1e9)}) {
    EXPECT_EQ(FechaSQL(value, nullptr), "");
  }
}

TEST(AbreConnection, NeverRaises) {
  const auto connection = AbreConnection("C:\\datos\\no existe.mdb");
  ASSERT_TRUE(connection);
  EXPECT_EQ(connection->State(), data::ObjectState::Closed);
  EXPECT_EQ(connection->ConnectionString(), "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\datos\\no existe.mdb");
  EXPECT_EQ(connection->cursorLocation(), CursorLocation::Client);
  EXPECT_EQ(connection->CommandTimeout(), std::chrono::seconds{30});
  EXPECT_EQ(connection->Properties().get("Jet OLEDB:Database Password").toText(), "KXTRBAMV");
  EXPECT_EQ(AbreConnection("a;b='")->State(), data::ObjectState::Closed);
}

TEST(AbreConnection, ChecksThePasswordOfTheFile) {
  data::registerBuiltInDrivers();
  struct Row {
    const char* password;
    bool opens;
  };
  for (const Row& row : {Row{"", true}, Row{"KXTRBAMV", true}, Row{"kxtrbamv", false}, Row{"KXTRBAMVX", false}}) {
    SCOPED_TRACE(row.password);
    const auto file = std::filesystem::temp_directory_path() / "qvn_abre_connection_test.mdb";
    std::filesystem::remove(file);
    const std::string make = "python3 " QVN_JET_SCRIPT " '" + file.string() + "' '" + row.password + "'";
    ASSERT_EQ(std::system(make.c_str()), 0);
    const auto connection = AbreConnection(file.string());
    EXPECT_EQ(connection->State() == data::ObjectState::Open, row.opens);
    if (row.opens) {
      const auto rows = CreaRecordSet("SELECT * FROM prods", connection);
      EXPECT_EQ(rows->RecordCount(), 2);
      EXPECT_EQ(rows->Fields("nombre").Value().toText(), "Piñón de 12€");
      EXPECT_EQ(test::errorNumber([&] { connection->Execute("DELETE FROM prods"); }),
                data::provider_number::kNotSupported);
    }
    std::filesystem::remove(file);
  }
}

}  // namespace
}  // namespace qvn::core
