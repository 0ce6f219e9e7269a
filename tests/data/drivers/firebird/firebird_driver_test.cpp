// Opening databases inside this process.
#include "qvn/data/drivers/firebird/firebird_driver.h"

#include <clocale>
#include <fstream>

#include "tests/data/drivers/firebird/firebird_fixture.h"

namespace qvn::test {
namespace {

namespace number = data::provider_number;

TEST(FirebirdDriver, ServesConnectionStringsThatNameIt) {
  struct Row {
    const char* text;
    bool expected;
  };
  static constexpr Row kRows[] = {
      {"Provider=IbOleDb;Data Source=x", true},
      {"provider=iboledb.1", true},
      {"Provider=SQLite;x=IbOleDb", false},
      {"Provider=IbOle", false},
      {"", false},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(data::firebirdDriver()->accepts(data::ConnectionString(row.text)), row.expected) << row.text;
  }
}

TEST(FirebirdDriver, TellsWhyADatabaseWasNotOpened) {
  const ScratchFolder folder;
  std::ofstream(folder.path("texto.fdb")) << std::string(10'000, 'x');
  struct Row {
    std::string parameters;
    std::int32_t number;
    std::string words;
  };
  const Row rows[] = {
      {"User ID=SYSDBA", number::kBadConnectionString, "Data Source"},
      {"Data Source=x.fdb;Mode=Nada", number::kBadConnectionString, "Mode"},
      {"Data Source=C:\\tienda\\x.fdb", number::kBadConnectionString, "C:/tienda/x.fdb"},
      {"Data Source=" + folder.path("no_hay.fdb"), number::kUnspecified, "no_hay.fdb"},
      {"Data Source=" + folder.path("no_hay/x.fdb") + ";Mode=ReadWriteCreate", number::kUnspecified, "no_hay/x.fdb"},
      {"Data Source=" + folder.path("texto.fdb"), number::kUnspecified, "texto.fdb"},
      {"Data Source=127.0.0.1/1:/x.fdb", number::kUnspecified, "«127.0.0.1/1:/x.fdb»"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.parameters);
    const auto error = providerError([&] { connectTo("Provider=IbOleDb;Password=secreto-1;" + row.parameters); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), row.number);
    EXPECT_NE(error->description().find(row.words), std::string::npos) << error->description();
    EXPECT_EQ(error->description().find("secreto"), std::string::npos) << error->description();
  }
}

TEST(FirebirdDriver, PathsHoldAnyLetterInAnyLocale) {
  ASSERT_STREQ(setlocale(LC_ALL, nullptr), "C");
  const ScratchFolder folder;
  std::filesystem::create_directory(folder.path("año"));
  const std::string base = "Provider=IbOleDb;User ID=SYSDBA;Data Source=" + folder.path("año");
  const auto made = connectTo(base + "\\niño.fdb;Mode=ReadWriteCreate");
  made->execute("CREATE TABLE t (x INTEGER)");
  EXPECT_TRUE(std::filesystem::exists(folder.path("año/niño.fdb")));
  EXPECT_EQ(connectTo(base + "/niño.fdb")->execute("INSERT INTO t VALUES (1)").affectedRows, 1);
  EXPECT_STREQ(setlocale(LC_ALL, nullptr), "C");
}

class FirebirdModes : public FirebirdTest {};

TEST_F(FirebirdModes, ReadOnlyWritesNothing) {
  session_->execute("CREATE TABLE t (x INTEGER)");
  const auto reader = connectTo(connectionString_ + ";Mode=ReadOnly");
  EXPECT_EQ(errorNumber([&] { reader->execute("INSERT INTO t VALUES (1)"); }), number::kStatementRefused);
  EXPECT_EQ(shown(test::scalar(*reader, "SELECT COUNT(*) FROM t")), shown(std::int64_t{0}));
}

TEST_F(FirebirdModes, NewDatabasesHoldUnicode) {
  EXPECT_EQ(shown(scalar("SELECT TRIM(RDB$CHARACTER_SET_NAME) FROM RDB$DATABASE")), shown("UTF8"));
  EXPECT_TRUE(session_->engineVersion().starts_with("Firebird ")) << session_->engineVersion();
}

TEST_F(FirebirdModes, ASessionEndedInMidResultIsLost) {
  const std::string id = scalar("SELECT CURRENT_CONNECTION FROM RDB$DATABASE").toText();
  data::StatementResult open = session_->execute("SELECT RDB$FIELD_NAME FROM RDB$FIELDS");
  ASSERT_TRUE(open.cursor->next());
  another()->execute("DELETE FROM MON$ATTACHMENTS WHERE MON$ATTACHMENT_ID = " + id);
  EXPECT_EQ(errorNumber([&] { remaining(*open.cursor); }), number::kUnspecified);
  EXPECT_FALSE(open.cursor->next());
  EXPECT_EQ(errorNumber([&] { session_->execute("SELECT 1 FROM RDB$DATABASE"); }), number::kUnspecified);
}

}  // namespace
}  // namespace qvn::test
