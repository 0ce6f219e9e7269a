// Echoes over real sockets, in networks of the tests' own.
#include "qvn/system/echo_port.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <future>
#include <utility>

#include "qvn/system/ping.h"
#include "tests/support/echo_responder.h"
#include "tests/support/own_network.h"

namespace qvn::system {
namespace {

using std::chrono::milliseconds;
using test::Answer;
using test::EchoSockets;
using test::errorAbout;
using test::PacketBytes;
using test::replyTo;
using test::withChange;
using Clock = std::chrono::steady_clock;

constexpr Ipv4Address kThisMachine = {127, 0, 0, 1};

EchoRequest requestTo(Ipv4Address address, milliseconds timeout = milliseconds(10000)) {
  return {.address = address, .payload = "Echo this string of data", .timeToLive = 255, .timeout = timeout};
}

milliseconds elapsedSince(Clock::time_point start) {
  return std::chrono::duration_cast<milliseconds>(Clock::now() - start);
}

// What DoPing tells of a host, and how long it took.
struct Told {
  std::vector<std::string> events;
  std::string address;
  milliseconds elapsed;
};

Told tellOf(std::string_view host) {
  Told told{};
  Ping ping;
  ping.onPingOK([&](std::int32_t& poSpeed) {
    told.events.emplace_back("ok");
    EXPECT_GE(poSpeed, 0);
    EXPECT_LT(poSpeed, 1000);
  });
  ping.onPingError([&](std::string_view peErrDescription) { told.events.emplace_back(peErrDescription); });
  const auto start = Clock::now();
  const bool isThere = ping.DoPing(host);
  told.elapsed = elapsedSince(start);
  told.address = ping.lastIP();
  EXPECT_EQ(isThere, told.events == std::vector<std::string>{"ok"});
  return told;
}

// In a network of its own, where the system does not answer.
void inSilentNetwork(EchoSockets sockets, const std::function<void()>& body) {
  test::runInOwnNetwork(sockets, [&body] {
    test::stopAnsweringEchoes();
    body();
  });
}

// Either kind of socket has to do the same.
class EchoSocketsTest : public testing::TestWithParam<EchoSockets> {};

INSTANTIATE_TEST_SUITE_P(Sockets, EchoSocketsTest, testing::Values(EchoSockets::Datagram, EchoSockets::None),
                         [](const auto& sockets) {
                           return sockets.param == EchoSockets::Datagram ? "Datagram" : "Raw";
                         });

TEST_P(EchoSocketsTest, ThisMachineAnswersOnce) {
  test::runInOwnNetwork(GetParam(), [] {
    const Told told = tellOf("localhost");
    EXPECT_EQ(told.events, std::vector<std::string>{"ok"});
    EXPECT_EQ(told.address, "127.0.0.1");
    EXPECT_EQ(tellOf("0.0.0.0").events, std::vector<std::string>{"ok"});
  });
}

TEST_P(EchoSocketsTest, TheRequestLeavesAsItWasAskedFor) {
  inSilentNetwork(GetParam(), [] {
    test::EchoResponder responder([](const PacketBytes& request) { return std::vector<Answer>{{replyTo(request)}}; });
    ASSERT_TRUE(systemEcho()->echo(requestTo(kThisMachine)).reply);
    ASSERT_TRUE(systemEcho()->echo(requestTo(kThisMachine)).reply);
    const auto packets = responder.requests();
    ASSERT_EQ(packets.size(), 2U);
    const PacketBytes& packet = packets.front();
    ASSERT_EQ(packet.size(), 52U);
    EXPECT_EQ(packet[0], 0x45) << "no options";
    EXPECT_EQ(packet[1], 0) << "type of service";
    EXPECT_EQ(packet[6], 0) << "flags";
    EXPECT_EQ(packet[8], 255) << "time to live";
    EXPECT_EQ(std::string(packet.begin() + 28, packet.end()), "Echo this string of data");
    EXPECT_FALSE(std::equal(packet.begin() + 24, packet.begin() + 28, packets[1].begin() + 24)) << "its numbers";
  });
}

// The reply follows 60 milliseconds later.
TEST_P(EchoSocketsTest, OnlyTheRightReplyAndErrorsOfRoutersCount) {
  using Script = std::function<Answer(const PacketBytes& request)>;
  struct Row {
    const char* why;
    Script first;
    std::uint32_t status = 0;
  };
  const auto changedReply = [](std::size_t offset) -> Script {
    return [offset](const PacketBytes& r) { return Answer{withChange(replyTo(r), offset)}; };
  };
  const auto error = [](std::uint8_t type, std::uint8_t code) -> Script {
    return [type, code](const PacketBytes& r) { return Answer{errorAbout(r, type, code)}; };
  };
  const auto foreignReply = [](const PacketBytes& r) { return Answer{replyTo(r), {}, {127, 0, 0, 9}}; };
  const auto foreignError = [](const PacketBytes& r) { return Answer{withChange(errorAbout(r, 3, 1), 34)}; };
  const Row rows[] = {
      {"identifier", changedReply(4)},
      {"sequence", changedReply(6)},
      {"payload", changedReply(8)},
      {"another host", foreignReply},
      {"a redirection", error(5, 1)},
      {"an error about another request", foreignError},
      {"no such network", error(3, 0), 11002},
      {"no such host", error(3, 1), 11003},
      {"a filter", error(3, 13), 11002},
      {"the time to live is over", error(11, 0), 11013},
      {"a parameter", error(12, 0), 11015},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    inSilentNetwork(GetParam(), [&row] {
      test::EchoResponder responder([&row](const PacketBytes& request) {
        return std::vector<Answer>{row.first(request), {replyTo(request), milliseconds(60)}};
      });
      const EchoResult result = systemEcho()->echo(requestTo(kThisMachine));
      ASSERT_TRUE(result.reply);
      EXPECT_EQ(result.reply->status, row.status);
      EXPECT_TRUE(row.status != 0 || result.reply->roundTrip >= milliseconds(60));
    });
  }
}

TEST_P(EchoSocketsTest, ForeignTrafficDoesNotProlongTheWait) {
  inSilentNetwork(GetParam(), [] {
    test::EchoResponder responder([](const PacketBytes& request) {
      const Answer foreign{withChange(replyTo(request), 8), milliseconds(10)};
      return std::vector<Answer>(200, foreign);
    });
    const auto start = Clock::now();
    const EchoResult result = systemEcho()->echo(requestTo(kThisMachine, milliseconds(300)));
    EXPECT_FALSE(result.reply);
    EXPECT_EQ(result.systemError, 0);
    EXPECT_GE(elapsedSince(start), milliseconds(300));
    EXPECT_LT(elapsedSince(start), milliseconds(1000));
  });
}

TEST_P(EchoSocketsTest, AnAbandonedWaitEndsSoon) {
  inSilentNetwork(GetParam(), [] {
    const auto start = Clock::now();
    EchoRequest request = requestTo(kThisMachine);
    request.isAbandoned = [&] { return elapsedSince(start) > milliseconds(150); };
    EXPECT_FALSE(systemEcho()->echo(request).reply);
    EXPECT_LT(elapsedSince(start), milliseconds(2000));
  });
}

TEST_P(EchoSocketsTest, TellsRepliesOfManyApart) {
  test::runInOwnNetwork(GetParam(), [] {
    // Fewer messages in all than the queue of a raw socket holds, however long a station is kept from reading.
    constexpr int kStations = 4;
    constexpr int kEchoes = 40;
    std::vector<std::future<int>> stations;
    for (int i = 0; i < kStations; ++i) {
      stations.push_back(std::async(std::launch::async, [] {
        int answers = 0;
        for (int j = 0; j < kEchoes; ++j) answers += systemEcho()->echo(requestTo(kThisMachine)).reply ? 1 : 0;
        return answers;
      }));
    }
    for (auto& station : stations) EXPECT_EQ(station.get(), kEchoes);
  });
}

// The queue of a raw socket held the replies to all, and when it was full the right one was dropped.
TEST_P(EchoSocketsTest, ManyForeignRepliesLeaveRoomForTheRightOne) {
  inSilentNetwork(GetParam(), [] {
    std::promise<void> waiting;
    std::promise<void> answered;
    test::EchoResponder responder(
        [&](const PacketBytes& request) {
          waiting.get_future().wait();
          std::vector<Answer> answers(1000, Answer{withChange(replyTo(request), 4)});
          answers.push_back({replyTo(request)});
          return answers;
        },
        [&] { answered.set_value(); });
    EchoRequest request = requestTo(kThisMachine);
    bool isFirst = true;
    request.isAbandoned = [&] {
      if (std::exchange(isFirst, false)) {
        waiting.set_value();
        answered.get_future().wait();
      }
      return false;
    };
    EXPECT_TRUE(systemEcho()->echo(request).reply);
  });
}

TEST(EchoPort, LostRequestsAreOneFailureEach) {
  inSilentNetwork(EchoSockets::Datagram, [] {
    int request = 0;
    test::EchoResponder everyThird([&request](const PacketBytes& packet) {
      return ++request % 3 == 0 ? std::vector<Answer>{{replyTo(packet), milliseconds(50)}} : std::vector<Answer>{};
    });
    std::string seen;
    for (int i = 0; i < 9; ++i) {
      const auto reply = systemEcho()->echo(requestTo(kThisMachine, milliseconds(150))).reply;
      seen += reply && reply->roundTrip >= milliseconds(50) ? '+' : '-';
    }
    EXPECT_EQ(seen, "--+--+--+");
  });
}

TEST(EchoPort, NeedsOneOfTheTwoRights) {
  test::runInOwnNetwork(EchoSockets::Datagram, [] {
    test::giveUpRawSockets();
    EXPECT_TRUE(systemEcho()->echo(requestTo(kThisMachine)).reply);
  });
  test::runInOwnNetwork(EchoSockets::None, [] {
    test::giveUpRawSockets();
    const EchoResult result = systemEcho()->echo(requestTo(kThisMachine));
    EXPECT_FALSE(result.reply);
    EXPECT_EQ(result.systemError, EPERM);
  });
}

TEST_P(EchoSocketsTest, ARouterSaysWhatItCannotReach) {
  test::runInOwnNetwork(GetParam(), [] {
    const test::Router router;
    router.run("ip route add unreachable 10.10.0.0/16 && ip route add prohibit 10.11.0.0/16");
    router.run("ip route add 10.12.0.0/16 via 10.9.0.1");
    // This end passes on even packets of its own that come back.
    ASSERT_EQ(std::system("cd /proc/sys/net/ipv4 && echo 1 > ip_forward && echo 1 > conf/cable/accept_local"), 0);
    struct Row {
      const char* why;
      std::string host;
      std::string event;
    };
    const Row rows[] = {
        {"the router itself", "10.9.0.2", "ok"},
        {"no way from there", "10.10.0.1", "Ping failed to complete, error = 11003"},
        {"a filter", "10.11.0.1", "Ping failed to complete, error = 11002"},
        {"back and forth until the time to live is over", "10.12.0.1", "Ping failed to complete, error = 11013"},
        {"nobody on this cable has the address", "10.9.0.77", "Ping failed to complete, error = 11003"},
        {"broadcast", "255.255.255.255", "Ping failed, error = 0"},
        {"the cable's broadcast", "10.9.0.255", "Ping failed, error = 0"},
        {"no such name", "no hay.invalid", "Ping failed, error = 0"},
    };
    for (const Row& row : rows) {
      SCOPED_TRACE(row.why);
      const Told told = tellOf(row.host);
      EXPECT_EQ(told.events, std::vector{row.event});
      EXPECT_LT(told.elapsed, milliseconds(5000));
    }
  });
}

TEST(EchoPort, ASilentHostIsOneErrorAfterTenSeconds) {
  inSilentNetwork(EchoSockets::Datagram, [] {
    const Told told = tellOf("127.0.0.1");
    EXPECT_EQ(told.events, std::vector<std::string>{"Ping failed, error = 0"});
    EXPECT_GE(told.elapsed, milliseconds(10000));
    EXPECT_LT(told.elapsed, milliseconds(11000));
  });
}

}  // namespace
}  // namespace qvn::system
