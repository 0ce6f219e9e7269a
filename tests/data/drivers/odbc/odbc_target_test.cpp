// Connection strings of hosts in, those of the driver manager out.
#include "qvn/data/drivers/odbc/odbc_target.h"

#include "qvn/data/drivers/odbc/installed_drivers.h"
#include "tests/data/drivers/odbc/odbc_fixture.h"

namespace qvn::data::odbc {
namespace {

using test::errorNumber;

struct Row {
  const char* why;
  const char* given;
  std::string expected;
  const char* shownName;
};

void check(const Row& row, const std::string& user = {}, const std::string& password = {}) {
  SCOPED_TRACE(row.why);
  const ConnectionString parameters(row.given);
  const Target target = odbcTarget({parameters, user, password, {}});
  EXPECT_EQ(target.connectionString, row.expected);
  EXPECT_EQ(target.shownName, row.shownName);
}

TEST(OdbcTarget, ServesConnectionStringsOfItsEngines) {
  static constexpr std::pair<const char*, bool> kRows[] = {
      {"Provider=SQLNCLI10;Server=caja", true},
      {"provider=sqlncli11.1;Server=caja", true},
      {"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=x.mdb", true},
      {"Provider=MSDASQL;DSN=Tienda", true},
      {"Driver={MariaDB Unicode};SERVER=caja", true},
      {"DSN=Tienda", true},
      {"dsn=Tienda;UID=pos", true},
      {"MySQL;SERVER=caja;DATABASE=tienda", false},
      {"Provider=SQLite;Data Source=x.db", false},
      {"Provider=SQLite;Driver=SQLite3", false},
      {"Provider=IbOleDb;Data Source=SQLNCLI10", false},
      {"", false},
  };
  for (const auto& [given, expected] : kRows) EXPECT_EQ(isForOdbc(ConnectionString(given)), expected) << given;
}

TEST(OdbcTarget, SqlServer) {
  const std::string driver = "DRIVER=" + registeredDriver("FreeTDS", "libtdsodbc.so") + ";";
  const std::string protocol = "TDS_Version=7.3;ClientCharset=UTF-8;";
  const Row rows[] = {
      {"the usual port", "Server=caja", "PORT=1433;SERVER=caja;" + protocol, "caja"},
      {"a port", "Server=caja,1500", "PORT=1500;SERVER=caja;" + protocol, "caja,1500"},
      {"a protocol", "Server=TCP:caja,1500", "PORT=1500;SERVER=caja;" + protocol, "caja,1500"},
      {"an instance tells its port", R"(Server=caja\ventas)", R"(SERVER=caja\ventas;)" + protocol, R"(caja\ventas)"},
      {"instance and port", R"(Server=tcp:caja\v,1500)", R"(PORT=1500;SERVER=caja\v;)" + protocol, R"(caja\v,1500)"},
      {"this machine", "Server=(local)", "PORT=1433;SERVER=localhost;" + protocol, "(local)"},
      {"this machine's port", "Server=.,1500", "PORT=1500;SERVER=localhost;" + protocol, ".,1500"},
      {"its instance", R"(Server=.\ventas)", R"(SERVER=localhost\ventas;)" + protocol, R"(.\ventas)"},
      {"its other name", R"(Server=(LOCAL)\v)", R"(SERVER=localhost\v;)" + protocol, R"((LOCAL)\v)"},
      {"other names", "Data Source=caja;Initial Catalog=mi tienda",
       "PORT=1433;SERVER=caja;DATABASE=mi tienda;" + protocol, "caja"},
      {"who connects", "Server=caja;Database=t;User ID=pos;Password=a",
       "PORT=1433;SERVER=caja;DATABASE=t;" + protocol + "UID=pos;PWD=a;", "caja"},
  };
  for (Row row : rows) {
    const std::string given = std::string("Provider=SQLNCLI10;") + row.given;
    row.given = given.c_str();
    row.expected.insert(0, driver);
    check(row);
  }
}

TEST(OdbcTarget, OtherDrivers) {
  const Row rows[] = {
      {"what its driver needs", "Driver={MariaDB Unicode};Server=caja;Database=t",
       "Driver=MariaDB Unicode;Server=caja;Database=t;OPTIONS=3145730;CHARSET=utf8mb4;", "MariaDB Unicode"},
      {"the host's own number", "Driver=libmaodbc.so;option=3", "Driver=libmaodbc.so;option=3;", "libmaodbc.so"},
      {"the host's own time", "Driver=SQLite3;Database=a.db;StepAPI=0", "Driver=SQLite3;Database=a.db;StepAPI=0;",
       "SQLite3"},
      {"the last of two equal names counts", "Driver=SQLite3;Database=a.db;DATABASE=b.db",
       "Driver=SQLite3;DATABASE=b.db;StepAPI=1;Timeout=100;", "SQLite3"},
      {"credentials under their names for the manager", "User=pos;Password=a;DSN=Tienda", "DSN=Tienda;UID=pos;PWD=a;",
       "Tienda"},
      {"a provider that stands for the manager", "Provider=MSDASQL;DSN=Tienda", "DSN=Tienda;", "Tienda"},
      {"whose source has its provider's name", "Provider=MSDASQL;Data Source=Tienda", "DSN=Tienda;", "Tienda"},
      {"an unknown driver gets nothing", "Driver=Otro;Server=caja", "Driver=Otro;Server=caja;", "Otro"},
  };
  for (const Row& row : rows) check(row);
}

TEST(OdbcTarget, ValuesAreQuotedOnlyWhereTheyMustBe) {
  struct Value {
    const char* why;
    std::string password;
    const char* expected;
  };
  const Value rows[] = {
      {"plain", "a b-1/ñ", "a b-1/ñ"},       {"end of the part", "a;b", "{a;b}"},
      {"closing brace", "a}b}", "{a}}b}}}"}, {"opening brace", "{a", "{{a}"},
      {"apostrophe", "d'Or", "{d'Or}"},      {"quotation mark", "3\"", "{3\"}"},
      {"equals sign", "a=b", "{a=b}"},       {"blanks in front and behind", " a ", "{ a }"},
  };
  for (const Value& row : rows) {
    const std::string tail = std::string("PWD=") + row.expected + ";";
    check({row.why, "DSN=Tienda;UID=x", "DSN=Tienda;UID=pos;" + tail, "Tienda"}, "pos", row.password);
    check({row.why, "DSN=Tienda;UID=x;PWD=y", "DSN=Tienda;UID=x;" + tail, "Tienda"}, {}, row.password);
  }
}

TEST(OdbcTarget, RefusesStringsThatLeadNowhere) {
  for (const char* const given : {"Provider=SQLNCLI10", "Provider=SQLNCLI10;Server=;Database=t", "Provider=MSDASQL",
                                  "Provider=Microsoft.Jet.OLEDB.4.0", "DSN="}) {
    const ConnectionString parameters(given);
    EXPECT_EQ(errorNumber([&] {
                odbcTarget({parameters, {}, {}, {}});
              }),
              provider_number::kBadConnectionString)
        << given;
  }
}

}  // namespace
}  // namespace qvn::data::odbc
