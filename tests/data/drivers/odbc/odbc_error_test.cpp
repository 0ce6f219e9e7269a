// What goes wrong without a server.
#include "qvn/data/drivers/odbc/odbc_error.h"

#include "tests/data/drivers/odbc/odbc_fixture.h"

namespace qvn::test {
namespace {

namespace number = data::provider_number;

TEST(OdbcError, WordsAreThoseOfTheEngine) {
  struct Row {
    const char* words;
    const char* expected;
  };
  static constexpr Row kRows[] = {
      {"[unixODBC][FreeTDS][SQL Server]Login failed", "Login failed"},
      {"[SQLite]no such table: t (1)", "no such table: t (1)"},
      {"near \"[x]\": error", "near \"[x]\": error"},
      {"[a] blanks ", "blanks"},
      {"[sin fin", "[sin fin"},
      {"[a]", ""},
      {"", ""},
  };
  for (const Row& row : kRows) EXPECT_EQ(data::odbc::withoutSenders(row.words), row.expected) << row.words;
}

TEST(OdbcError, TellsWhyItDidNotConnect) {
  const ScratchFolder folder;
  struct Row {
    std::string parameters;
    std::int32_t number;
    std::string words;
  };
  const Row rows[] = {
      {"Driver=no_hay", number::kNoSuchProvider, "«no_hay»"},
      {"DSN=no_hay", number::kNoSuchProvider, "«no_hay»"},
      {"Driver=/no_hay/libsqlite3odbc.so", number::kNoSuchProvider, "libsqliteodbc"},
      {"Driver=SQLite3;Database=" + folder.path("no_hay/tienda.db"), number::kUnspecified, "revise"},
      {"Driver=MariaDB Unicode;SOCKET=" + folder.path("no_hay.sock"), number::kUnspecified, "revise"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.parameters);
    const auto error = providerError([&] { connectTo(row.parameters + ";UID=pos;PWD=secreto-1"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), row.number);
    EXPECT_NE(error->description().find(row.words), std::string::npos) << error->description();
    EXPECT_EQ(error->description().find("secreto"), std::string::npos) << error->description();
  }
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
