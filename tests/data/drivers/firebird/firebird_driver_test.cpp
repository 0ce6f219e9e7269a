// Opening databases inside this process.
#include "qvn/data/drivers/firebird/firebird_driver.h"

#include <clocale>
#include <fstream>

#include "tests/data/drivers/firebird/firebird_fixture.h"

namespace qvn::test {
namespace {

namespace number = data::provider_number;

TEST(FirebirdDriver, ServesConnectionStringsThatNameIt) {
  expectServed(*data::firebirdDriver(), {{"Provider=IbOleDb;Data Source=x", true},
                                         {"provider=iboledb.1", true},
                                         {"Provider=SQLite;x=IbOleDb", false},
                                         {"Provider=IbOle", false},
                                         {"", false}});
}

TEST(FirebirdDriver, TellsWhyADatabaseWasNotOpened) {
  const ScratchFolder folder;
  std::ofstream(folder.path("texto.fdb")) << std::string(10'000, 'x');
  const std::vector<Failure> failures = {
      {.cause = "User ID=SYSDBA", .number = number::kBadConnectionString, .words = "Data Source"},
      {.cause = "Data Source=x.fdb;Mode=Nada", .number = number::kBadConnectionString, .words = "Mode"},
      {.cause = "Data Source=C:\\tienda\\x.fdb", .number = number::kBadConnectionString, .words = "C:/tienda/x.fdb"},
      {.cause = "Data Source=" + folder.path("no_hay.fdb"), .number = number::kUnspecified, .words = "no_hay.fdb"},
      {.cause = "Data Source=" + folder.path("no_hay/x.fdb") + ";Mode=ReadWriteCreate",
       .number = number::kUnspecified,
       .words = "no_hay/x.fdb"},
      {.cause = "Data Source=" + folder.path("texto.fdb"), .number = number::kUnspecified, .words = "texto.fdb"},
      {.cause = "Data Source=127.0.0.1/1:/x.fdb", .number = number::kUnspecified, .words = "«127.0.0.1/1:/x.fdb»"},
  };
  expectFailures("Firebird", failures,
                 [](const std::string& parameters) { connectTo("Provider=IbOleDb;Password=secreto-1;" + parameters); });
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

}  // namespace
}  // namespace qvn::test
