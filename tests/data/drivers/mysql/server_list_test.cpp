#include "qvn/data/drivers/mysql/server_list.h"

#include "tests/data/drivers/mysql/mysql_fixture.h"
#include "tests/support/silent_proxy.h"

namespace qvn::data::mysql {
namespace {

namespace number = provider_number;
using std::chrono::seconds;

ServerList listOf(const std::string& options) {
  const ConnectionString parameters("MySQL;" + options);
  return serverList({parameters, {}, {}, {}});
}

std::string namesOf(const std::vector<ServerAddress>& servers) {
  std::string names;
  for (const ServerAddress& server : servers) names += server.quotedName();
  return names;
}

TEST(ServerList, ReadsServersAndPorts) {
  static constexpr std::pair<const char*, const char*> kRows[] = {
      {"", "«localhost»"},
      {"SERVER=", "«localhost»"},
      {"SERVER=caja", "«caja»"},
      {"SERVER=caja;PORT=3307", "«caja:3307»"},
      {"SERVER=a,b:3308, c ;PORT=3307", "«a:3307»«b:3308»«c:3307»"},
      {"HOST=a,b", "«a»«b»"},
      {"Data Source=a:1,b:65535", "«a:1»«b:65535»"},
      {"SERVER=::1", "«::1»"},
      {"SERVER=fe80::1,[::1]:3308,[::2];PORT=3307", "«fe80::1:3307»«::1:3308»«::2:3307»"},
      {"SERVER=a,b;SOCKET=/run/s", "«/run/s»"},
  };
  for (const auto& [options, expected] : kRows) EXPECT_EQ(namesOf(listOf(options).servers), expected) << options;
}

TEST(ServerList, ReadsOptions) {
  const ServerList plain = listOf("SERVER=a;Desconocida=1");
  EXPECT_FALSE(plain.isRandom);
  EXPECT_FALSE(plain.reconnects);
  EXPECT_EQ(plain.connectTimeout, seconds(15));
  const ServerList all = listOf("SERVER=a;server order=RANDOM;Connect Timeout=86400;Reconnect=yes");
  EXPECT_TRUE(all.isRandom);
  EXPECT_TRUE(all.reconnects);
  EXPECT_EQ(all.connectTimeout, seconds(86400));
}

TEST(ServerList, RefusesWhatItCannotRead) {
  for (const char* const options :
       {"SERVER=a,", "SERVER=,a", "SERVER=a,,b", "SERVER=a:", "SERVER=a:0", "SERVER=a:65536", "SERVER=a:x", "SERVER=:1",
        "SERVER=[::1", "SERVER=[::1]3307", "SERVER=[]:1", "Server Order=first", "Connect Timeout=0",
        "Connect Timeout=86401", "Connect Timeout=5s", "Reconnect=maybe"}) {
    EXPECT_EQ(test::errorNumber([&] { listOf(options); }), number::kBadConnectionString) << options;
  }
}

class FixedRandom final : public RandomSource {
 public:
  explicit FixedRandom(std::vector<double> numbers) : numbers_(std::move(numbers)) {}
  double next() override { return numbers_.at(at_++); }

 private:
  std::vector<double> numbers_;
  std::size_t at_ = 0;
};

TEST(ServerList, ChanceOrdersTheServersOnlyWhenAsked) {
  FixedRandom none({});
  EXPECT_EQ(namesOf(tryOrder(listOf("SERVER=a,b,c"), none)), "«a»«b»«c»");
  FixedRandom lowest({0.0, 0.0});
  EXPECT_EQ(namesOf(tryOrder(listOf("SERVER=a,b,c;Server Order=Random"), lowest)), "«b»«c»«a»");
  FixedRandom highest({0.999, 0.999});
  EXPECT_EQ(namesOf(tryOrder(listOf("SERVER=a,b,c;Server Order=Random"), highest)), "«a»«b»«c»");
}

std::string servers(const std::string& list) { return test::mysqlTcpConnectionString() + ";SERVER=" + list; }

TEST(ServersInTurn, TheFirstThatAnswersServes) {
  test::SilentProxy frozen(test::mysqlPort());
  frozen.goSilent();
  const std::string silent = "127.0.0.1:" + std::to_string(frozen.port());
  for (const std::string& before : {std::string("no-hay.invalid"), std::string("127.0.0.1:1"), silent}) {
    SCOPED_TRACE(before);
    const auto start = std::chrono::steady_clock::now();
    const auto session = test::connectTo(servers(before + ",127.0.0.1") + ";Connect Timeout=1");
    EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(4));
    EXPECT_EQ(test::shown(test::scalar(*session, "SELECT 7")), test::shown(std::int32_t{7}));
  }
}

TEST(ServersInTurn, WhenAllFailEachIsToldAndARefusedUserFirst) {
  const auto error =
      test::providerError([&] { test::connectTo(servers("no-hay.invalid,127.0.0.1:1,127.0.0.1") + ";PWD=secreto-1"); });
  ASSERT_TRUE(error);
  ASSERT_EQ(error->errors().size(), 3u);
  EXPECT_EQ(error->number(), number::kLoginRefused);
  EXPECT_EQ(error->errors()[0].nativeError, 1045);
  EXPECT_EQ(error->errors()[1].nativeError, 2005);
  EXPECT_EQ(error->errors()[2].nativeError, 2002);
  for (const char* const words : {"3 servidores", "«no-hay.invalid:", "«127.0.0.1:1»", "«qvn»"}) {
    EXPECT_NE(error->description().find(words), std::string::npos) << error->description();
  }
  EXPECT_EQ(error->description().find("secreto"), std::string::npos);
}

}  // namespace
}  // namespace qvn::data::mysql
