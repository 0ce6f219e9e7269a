// A network that goes silent without closing its connections, as when a cable is pulled out.
#include <ostream>
#include <string>

#include "qvn/data/connection_string.h"
#include "qvn/data/drivers/built_in.h"
#include "tests/support/error_of.h"
#include "tests/support/mysql_server.h"
#include "tests/support/silent_proxy.h"
#include "tests/support/test_database.h"

namespace qvn::test {
namespace {

namespace number = data::provider_number;

struct Server {
  const char* name;
  const char* variable;   // names its connection string
  const char* parameter;  // of that string: where the port stands
  const char* beforePort;
  const char* select;
};

void PrintTo(const Server& server, std::ostream* out) { *out << server.name; }

const Server kServers[] = {
    {"MySQL", "QVN_TEST_MYSQL_TCP", "PORT", "", "SELECT 1"},
    {"FirebirdServer", "QVN_TEST_FIREBIRD", "Data Source", "/", "SELECT 1 FROM RDB$DATABASE"},
    {"SqlServer", "QVN_TEST_TDS", "Server", ",", "SELECT 1"},
};

class SilentNetwork : public testing::TestWithParam<Server> {
 protected:
  static std::size_t portAt(const std::string& value) {
    return value.find(GetParam().beforePort) + std::string(GetParam().beforePort).size();
  }

  std::string direct_ = serverVariable(GetParam().variable);
  std::string place_ = data::ConnectionString(direct_).value({GetParam().parameter}).value_or("");
  SilentProxy proxy_{std::stoi(place_.substr(portAt(place_)))};

  [[nodiscard]] std::string throughProxy() const {
    std::string place = place_;
    const std::size_t from = portAt(place);
    const std::size_t end = std::min(place.find_first_not_of("0123456789", from), place.size());
    place.replace(from, end - from, std::to_string(proxy_.port()));
    // The last of two equal names counts.
    return direct_ + ";" + GetParam().parameter + "=" + place;
  }
};

TEST_P(SilentNetwork, IsALostConnectionAfterTheTimeout) {
  data::registerBuiltInDrivers();
  const auto connection = data::Connection::create();
  connection->setCommandTimeout(std::chrono::seconds{1});
  connection->Open(throughProxy());
  EXPECT_EQ(connection->Execute(GetParam().select)->Fields(0).Value().toText(), "1");
  proxy_.goSilent();
  EXPECT_EQ(errorNumber([&] { connection->Execute(GetParam().select); }), number::kUnspecified);
  ASSERT_FALSE(connection->Errors().empty());
  // Said at once, without asking the server again.
  EXPECT_EQ(errorNumber([&] { connection->Execute(GetParam().select); }), number::kUnspecified);
  connection->Close();
}

INSTANTIATE_TEST_SUITE_P(Servers, SilentNetwork, testing::ValuesIn(kServers),
                         [](const auto& parameter) { return parameter.param.name; });

}  // namespace
}  // namespace qvn::test
