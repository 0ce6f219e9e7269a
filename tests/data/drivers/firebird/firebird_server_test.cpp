// The same driver over the network, and networks that break.
#include "tests/data/drivers/firebird/firebird_fixture.h"
#include "tests/support/mysql_server.h"
#include "tests/support/silent_proxy.h"

namespace qvn::test {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;
namespace number = data::provider_number;

std::string serverConnectionString() { return serverVariable("QVN_TEST_FIREBIRD"); }

// "127.0.0.1/PORT:PATH" of the test database.
std::string dataSource() { return *data::ConnectionString(serverConnectionString()).value({"Data Source"}); }

TEST(FirebirdServer, RefusesAWrongPassword) {
  const std::vector<Failure> failures = {{";Password=secreto-1", number::kLoginRefused, -902},
                                         {";User ID=nadie", number::kLoginRefused, -902}};
  expectFailures("Firebird", failures, [](const std::string& wrong) { connectTo(serverConnectionString() + wrong); });
}

TEST(FirebirdServer, TheRequestsUserAndPasswordGoFirst) {
  const data::ConnectionString right(serverConnectionString());
  const data::ConnectionString wrong(serverConnectionString() + ";User ID=nadie;Password=nada");
  EXPECT_NE(data::firebirdDriver()->connect({wrong, "SYSDBA", *right.value({"Password"}), {}}), nullptr);
}

TEST(FirebirdServer, HoldsItsFilesAlone) {
  const auto holding = connectTo(serverConnectionString());
  const std::string file = dataSource().substr(dataSource().find(':') + 1);
  expectFailures("Firebird",
                 {{.cause = "Provider=IbOleDb;User ID=SYSDBA;Mode=ReadWriteCreate;Data Source=" + file,
                   .number = number::kUnspecified,
                   .words = "otro programa la tiene abierta"}},
                 [](const std::string& connectionString) { connectTo(connectionString); });
}

TEST(FirebirdServer, ABrokenNetworkEndsTheSessionAtOnce) {
  const std::string source = dataSource();
  const std::size_t slash = source.find('/');
  const std::size_t colon = source.find(':');
  SilentProxy network(std::stoi(source.substr(slash + 1, colon - slash - 1)));
  auto session = connectTo(serverConnectionString() + ";Data Source=127.0.0.1/" + std::to_string(network.port()) +
                           source.substr(colon));
  data::StatementResult open =
      session->execute("SELECT a.RDB$FIELD_NAME FROM RDB$FIELDS a, RDB$FIELDS b, RDB$FIELDS c");
  ASSERT_TRUE(open.cursor->next());
  session->execute("SET TRANSACTION");
  network.cut();
  const auto start = steady_clock::now();
  const auto error = providerError([&] { remaining(*open.cursor); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), number::kUnspecified);
  EXPECT_TRUE(error->errors().front().sqlState.starts_with("08")) << error->errors().front().sqlState;
  EXPECT_NE(error->description().find("vuelva a conectarse"), std::string::npos) << error->description();
  EXPECT_EQ(errorNumber([&] { session->execute("COMMIT"); }), number::kUnspecified);
  open.cursor.reset();
  session.reset();
  EXPECT_LT(steady_clock::now() - start, seconds(3));
}

}  // namespace
}  // namespace qvn::test
