#include "qvn/data/connection_string.h"

#include <gtest/gtest.h>

#include "tests/support/failures.h"

namespace qvn::data {
namespace {

TEST(ConnectionString, ReadsNamesAndValues) {
  struct Row {
    const char* why;
    const char* text;
    const char* name;
    const char* expected;
    const char* driver;
  };
  static constexpr Row kRows[] = {
      {"a bare driver comes first", "MySQL;SERVER=a;DATABASE=b", "database", "b", "MySQL"},
      {"names in any case, blanks around", "Provider = SQLite ; data source =  x.db ", "Data Source", "x.db", "SQLite"},
      {"the last of two equal names", "Provider=A;PWD=1;pwd=2", "PWD", "2", "A"},
      {"Driver when there is no Provider", "Driver={MySQL ODBC 5.1 Driver};UID=u", "uid", "u", "MySQL ODBC 5.1 Driver"},
      {"double quotes", "Provider=X;PWD=\"a;b=\"\"c\"", "PWD", "a;b=\"c", "X"},
      {"single quotes", "Provider=X;PWD='a''b;'", "PWD", "a'b;", "X"},
      {"braces", "Provider=X;PWD={a}}b;}", "PWD", "a}b;", "X"},
      {"an empty quoted value", "Provider=X;PWD=\"\"", "PWD", "", "X"},
      {"an empty value", "Provider=X;PWD=;UID=u", "PWD", "", "X"},
      {"= inside a value", "Provider=X;PWD=a=b", "PWD", "a=b", "X"},
      {"a quote inside a plain value", "Provider=X;PWD=a'b", "PWD", "a'b", "X"},
      {"empty parts", ";;Provider=X;;UID=u;;", "UID", "u", "X"},
      {"no driver at all", "UID=u", "UID", "u", ""},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    const ConnectionString parsed(row.text);
    EXPECT_EQ(parsed.value({row.name}), row.expected);
    EXPECT_EQ(parsed.driverName(), row.driver);
  }
  EXPECT_FALSE(ConnectionString("Provider=X").value({"PWD", "PASSWORD"}));
  EXPECT_EQ(ConnectionString("Provider=X;HOST=h").value({"SERVER", "HOST"}), "h");
}

TEST(ConnectionString, RefusesWhatIsMalformedWithoutRepeatingIt) {
  for (const char* text :
       {"Provider=X;PWD=\"secreto", "Provider=X;PWD={secreto", "Provider=X;PWD='secreto''",
        "Provider=X;PWD='secreto'x;UID=u", "Provider=X;secreto", "=secreto", "Provider=X; =secreto"}) {
    test::expectFailures("", {{text, provider_number::kBadConnectionString}},
                         [](const std::string& malformed) { ConnectionString parsed(malformed); });
  }
}

TEST(ConnectionString, HidesPasswords) {
  static constexpr std::pair<const char*, const char*> kRows[] = {
      {"MySQL;SERVER=a;PWD=x;UID=u", "MySQL;SERVER=a;PWD=***;UID=u"},
      {"Provider=X; password = 'a;b' ;UID=u", "Provider=X;password=***;UID=u"},
      {"Provider=X;Jet OLEDB:Database Password=x", "Provider=X;Jet OLEDB:Database Password=***"},
      {"Provider=X;Data Source=\"a;b\"", "Provider=X;Data Source=\"a;b\""},
      {"Provider=X;PWD='x", "Provider=X;***"},
      {"Provider=X Pwd=x", "Provider=X ***"},
      {"Provider=X;basura;Pwd=x", "Provider=X;basura;Pwd=***"},
      {"", ""},
  };
  for (const auto& [text, expected] : kRows) EXPECT_EQ(withoutPassword(text), expected);
}

}  // namespace
}  // namespace qvn::data
