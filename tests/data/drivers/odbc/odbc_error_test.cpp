// What goes wrong without a server.
#include "qvn/data/drivers/odbc/odbc_error.h"

#include "tests/data/drivers/odbc/odbc_fixture.h"

namespace qvn::test {
namespace {

namespace number = data::provider_number;

TEST(OdbcError, WordsAreThoseOfTheEngine) {
  static constexpr std::pair<const char*, const char*> kRows[] = {
      {"[unixODBC][FreeTDS][SQL Server]Login failed", "Login failed"},
      {"[SQLite]no such table: t (1)", "no such table: t (1)"},
      {"near \"[x]\": error", "near \"[x]\": error"},
      {"[a] blanks ", "blanks"},
      {"[sin fin", "[sin fin"},
      {"[a]", ""},
      {"", ""},
  };
  for (const auto& [words, expected] : kRows) EXPECT_EQ(data::odbc::withoutSenders(words), expected) << words;
}

TEST(OdbcError, TellsWhyItDidNotConnect) {
  const ScratchFolder folder;
  const std::vector<Failure> failures = {
      {.cause = "Driver=no_hay", .number = number::kNoSuchProvider, .words = "«no_hay»"},
      {.cause = "DSN=no_hay", .number = number::kNoSuchProvider, .words = "«no_hay»"},
      {.cause = "Driver=/no_hay/libsqlite3odbc.so", .number = number::kNoSuchProvider, .words = "libsqliteodbc"},
      {.cause = "Driver=SQLite3;Database=" + folder.path("no_hay/tienda.db"),
       .number = number::kUnspecified,
       .words = "revise"},
      {.cause = "Driver=MariaDB Unicode;SOCKET=" + folder.path("no_hay.sock"),
       .number = number::kUnspecified,
       .words = "revise"},
  };
  expectFailures("ODBC", failures,
                 [](const std::string& parameters) { connectTo(parameters + ";UID=pos;PWD=secreto-1"); });
}

TEST(OdbcError, StatementsThatTheDriverWouldCutAreRefused) {
  const ScratchFolder folder;
  const auto session = connectTo(sqliteConnectionString(folder));
  session->execute("CREATE TABLE t (i INTEGER)");
  session->execute("INSERT INTO t VALUES (1)");
  for (const std::string& sql : {std::string("DELETE FROM t; DELETE FROM t"), std::string("DELETE FROM t\0", 14)}) {
    EXPECT_EQ(errorNumber([&] { session->execute(sql); }), number::kStatementRefused) << sql;
  }
  EXPECT_EQ(session->execute("DELETE FROM t;").affectedRows, 1);
}

}  // namespace
}  // namespace qvn::test
