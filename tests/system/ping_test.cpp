#include "qvn/system/ping.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/support/error_of.h"

namespace qvn::system {
namespace {

using std::chrono::microseconds;

// Answers what the test has laid down and keeps what it was asked.
class PreparedEcho final : public EchoPort {
 public:
  EchoResult echo(const EchoRequest& request) override {
    requests.push_back(request);
    return result;
  }
  EchoResult result;
  std::vector<EchoRequest> requests;
};

class KnownHosts final : public HostLookup {
 public:
  std::optional<Ipv4Address> addressOf(const std::string& name) override {
    asked.push_back(name);
    return hosts.contains(name) ? std::optional(hosts.at(name)) : std::nullopt;
  }
  const std::map<std::string, Ipv4Address> hosts = {
      {"caja2", {192, 168, 0, 205}}, {"cero", {0, 0, 0, 0}}, {"mixto", {10, 0, 100, 9}}};
  std::vector<std::string> asked;
};

class PingTest : public testing::Test {
 protected:
  PingTest() {
    ping_.onPingOK([this](std::int32_t& poSpeed) { events_.push_back("ok " + std::to_string(poSpeed)); });
    ping_.onPingError([this](std::string_view peErrDescription) { events_.emplace_back(peErrDescription); });
  }

  std::shared_ptr<PreparedEcho> echo_ = std::make_shared<PreparedEcho>();
  std::shared_ptr<KnownHosts> hosts_ = std::make_shared<KnownHosts>();
  Ping ping_{echo_, hosts_};
  std::vector<std::string> events_;
};

TEST_F(PingTest, RaisesOneEventForEachOutcome) {
  struct Row {
    const char* why;
    EchoResult result;
    bool expected;
    std::string event;
  };
  const Row rows[] = {
      {"a reply", {EchoReply{0, microseconds(12000)}}, true, "ok 12"},
      {"less than a millisecond", {EchoReply{0, microseconds(999)}}, true, "ok 0"},
      {"rounded down", {EchoReply{0, microseconds(1999)}}, true, "ok 1"},
      {"silence", {}, false, "Ping failed, error = 0"},
      {"nothing sent; its number is not shown", {{}, 101}, false, "Ping failed, error = 0"},
      {"refused", {EchoReply{11003, microseconds(500)}}, false, "Ping failed to complete, error = 11003"},
      {"any other status", {EchoReply{1, microseconds(0)}}, false, "Ping failed to complete, error = 1"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    events_.clear();
    echo_->result = row.result;
    EXPECT_EQ(ping_.DoPing("caja2"), row.expected);
    EXPECT_EQ(events_, std::vector{row.event});
    EXPECT_EQ(ping_.lastIP(), "192.168.0.205");
    EXPECT_FALSE(ping_.IsHostSyncRunning());
  }
}

TEST_F(PingTest, AsksWithFixedValuesAndWithoutAnAddressForAFailure) {
  struct Row {
    const char* host;
    const char* text;
    Ipv4Address address;
  };
  static constexpr Row kRows[] = {{"caja2", "192.168.0.205", {192, 168, 0, 205}},
                                  {"nadie", "No IP", {255, 255, 255, 255}}};
  for (const Row& row : kRows) {
    events_.clear();
    EXPECT_FALSE(ping_.DoPing(row.host));
    EXPECT_EQ(events_, std::vector<std::string>{"Ping failed, error = 0"});
    EXPECT_EQ(ping_.lastIP(), row.text);
    const EchoRequest& request = echo_->requests.back();
    EXPECT_EQ(request.address, row.address);
    EXPECT_EQ(request.payload, "Echo this string of data");
    EXPECT_EQ(request.timeToLive, 255);
    EXPECT_EQ(request.timeout, std::chrono::milliseconds(10000));
  }
  EXPECT_EQ(echo_->requests.size(), 2U);
}

TEST_F(PingTest, WorksWithoutListenersAndPassesOnWhatTheyThrow) {
  Ping quiet(echo_, hosts_);
  EXPECT_FALSE(quiet.DoPing("caja2"));
  echo_->result.reply = EchoReply{0, microseconds(1)};
  EXPECT_TRUE(quiet.DoPing("caja2"));
  quiet.onPingOK([](std::int32_t&) { throw RuntimeError(error_number::kOverflow); });
  EXPECT_EQ(test::errorNumber([&] { quiet.DoPing("caja2"); }), error_number::kOverflow);
}

TEST_F(PingTest, FillsTheNameUpInTheCallersVariable) {
  struct Row {
    const char* why;
    std::string host;
    std::string asked;
    std::string given;
    std::size_t size = 64;
  };
  const std::string longest(64, 'x');
  const std::string accented = std::string(62, 'x') + "ñ";
  const Row rows[] = {
      {"a name", "caja2", "caja2", "192.168.0.205"},
      {"no leading zeros", "mixto", "mixto", "10.0.100.9"},
      {"zeros alone", "cero", "cero", "0.0.0.0"},
      {"nothing", "", "", "No IP"},
      {"64 characters", longest, longest, "No IP"},
      {"characters, not bytes", accented, accented, "No IP", 65},
      {"a name that was filled up before", "caja2" + std::string(59, '\0'), "caja2", "192.168.0.205"},
      {"what follows a NUL", std::string("caja2\0x", 7), "caja2", "192.168.0.205"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    std::string host = row.host;
    EXPECT_EQ(ping_.pingGetHostByName(host), row.given);
    EXPECT_EQ(ping_.lastIP(), row.given);
    EXPECT_EQ(hosts_->asked.back(), row.asked);
    EXPECT_EQ(host, row.host + std::string(row.size - row.host.size(), '\0'));
  }
}

TEST_F(PingTest, RefusesNamesOfMoreThan64Characters) {
  EXPECT_EQ(ping_.lastIP(), "");
  ping_.DoPing("caja2");
  events_.clear();
  const std::string tooLong(65, 'x');
  std::string host = tooLong;
  EXPECT_EQ(test::errorNumber([&] { ping_.pingGetHostByName(host); }), error_number::kInvalidCall);
  EXPECT_EQ(test::errorNumber([&] { ping_.DoPing(tooLong); }), error_number::kInvalidCall);
  EXPECT_EQ(host, tooLong);
  EXPECT_EQ(ping_.lastIP(), "192.168.0.205");
  EXPECT_TRUE(events_.empty());
  EXPECT_EQ(echo_->requests.size(), 1U);
}

TEST(IP2Long, HasTheBytesOfTheAddressInMemory) {
  const auto bytesOf = [](std::string_view text) { return std::bit_cast<Ipv4Address>(Ping::IP2Long(text)); };
  EXPECT_EQ(bytesOf("127.0.0.1"), (Ipv4Address{127, 0, 0, 1}));
  EXPECT_EQ(bytesOf("1.2.3.4"), (Ipv4Address{1, 2, 3, 4}));
  EXPECT_EQ(bytesOf("255.254.253.252"), (Ipv4Address{255, 254, 253, 252}));
  EXPECT_EQ(bytesOf("127.1"), (Ipv4Address{127, 0, 0, 1}));
  EXPECT_EQ(bytesOf("0.0.0.0"), Ipv4Address{});
  for (const std::string_view text : {"No IP", "", "256.1.1.1", "1.2.3.4x", "1.2.3.4.5", "255.255.255.255"}) {
    EXPECT_EQ(Ping::IP2Long(text), -1) << text;
  }
}

TEST(SystemHostLookup, KnowsThisMachineAndDottedAddresses) {
  const auto lookup = systemHostLookup();
  EXPECT_EQ(lookup->addressOf("localhost"), (Ipv4Address{127, 0, 0, 1}));
  EXPECT_EQ(lookup->addressOf("10.20.30.40"), (Ipv4Address{10, 20, 30, 40}));
  for (const char* name : {"", "256.1.1.1", "no hay.invalid"}) EXPECT_EQ(lookup->addressOf(name), std::nullopt) << name;
}

}  // namespace
}  // namespace qvn::system
