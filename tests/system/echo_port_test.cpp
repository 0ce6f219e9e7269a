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

// Either kind of socket has to do the same.
class EchoSocketsTest : public testing::TestWithParam<EchoSockets> {
 protected:
  static void inOwnNetwork(const std::function<void()>& body) { test::runInOwnNetwork(GetParam(), body); }
};

INSTANTIATE_TEST_SUITE_P(Sockets, EchoSocketsTest, testing::Values(EchoSockets::Datagram, EchoSockets::None),
                         [](const auto& sockets) {
                           return sockets.param == EchoSockets::Datagram ? "Datagram" : "Raw";
                         });

TEST_P(EchoSocketsTest, ThisMachineAnswersOnce) {
  inOwnNetwork([] {
    int answers = 0;
    int failures = 0;
    Ping ping;
    ping.onPingOK([&](std::int32_t& poSpeed) {
      ++answers;
      EXPECT_GE(poSpeed, 0);
      EXPECT_LT(poSpeed, 1000);
    });
    ping.onPingError([&](std::string_view) { ++failures; });
    EXPECT_TRUE(ping.DoPing("localhost"));
    EXPECT_EQ(ping.lastIP(), "127.0.0.1");
    EXPECT_TRUE(ping.DoPing("0.0.0.0"));
    EXPECT_EQ(answers, 2);
    EXPECT_EQ(failures, 0);
  });
}

TEST_P(EchoSocketsTest, TheRequestLeavesAsItWasAskedFor) {
  inOwnNetwork([] {
    test::stopAnsweringEchoes();
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
    EXPECT_FALSE(std::equal(packets[0].begin() + 24, packets[0].begin() + 28, packets[1].begin() + 24))
        << "identifier and sequence";
  });
}

TEST_P(EchoSocketsTest, OnlyTheRightReplyCounts) {
  struct Row {
    const char* why;
    std::function<Answer(const PacketBytes& request)> wrong;
  };
  const Row rows[] = {
      {"identifier", [](const PacketBytes& r) { return Answer{withChange(replyTo(r), 4)}; }},
      {"sequence", [](const PacketBytes& r) { return Answer{withChange(replyTo(r), 6)}; }},
      {"payload", [](const PacketBytes& r) { return Answer{withChange(replyTo(r), 8)}; }},
      {"another host",
       [](const PacketBytes& r) {
         return Answer{replyTo(r), {}, {127, 0, 0, 9}};
       }},
      {"cut short",
       [](const PacketBytes& r) {
         PacketBytes reply = replyTo(r);
         reply.pop_back();
         return Answer{test::withChecksum(reply)};
       }},
      {"checksum",
       [](const PacketBytes& r) {
         PacketBytes reply = replyTo(r);
         reply[3] = static_cast<std::uint8_t>(reply[3] ^ 1U);
         return Answer{reply};
       }},
      {"a redirection", [](const PacketBytes& r) { return Answer{errorAbout(r, 5, 1)}; }},
      {"an error about another request",
       [](const PacketBytes& r) { return Answer{withChange(errorAbout(r, 3, 1), 34)}; }},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    inOwnNetwork([&row] {
      test::stopAnsweringEchoes();
      test::EchoResponder responder([&row](const PacketBytes& request) {
        return std::vector<Answer>{row.wrong(request), {replyTo(request), milliseconds(60)}};
      });
      const EchoResult result = systemEcho()->echo(requestTo(kThisMachine));
      ASSERT_TRUE(result.reply);
      EXPECT_EQ(result.reply->status, 0U);
      EXPECT_GE(result.reply->roundTrip, milliseconds(60));
    });
  }
}

TEST_P(EchoSocketsTest, ErrorsOfRoutersAreReplies) {
  inOwnNetwork([] {
    test::stopAnsweringEchoes();
    struct Row {
      std::uint8_t type;
      std::uint8_t code;
      std::uint32_t status;
    };
    static constexpr Row kRows[] = {{3, 0, 11002}, {3, 1, 11003}, {3, 13, 11002}, {11, 0, 11013}, {12, 0, 11015}};
    for (const Row& row : kRows) {
      test::EchoResponder responder([&row](const PacketBytes& request) {
        return std::vector<Answer>{{errorAbout(request, row.type, row.code)}, {replyTo(request), milliseconds(60)}};
      });
      const EchoResult result = systemEcho()->echo(requestTo(kThisMachine));
      ASSERT_TRUE(result.reply);
      EXPECT_EQ(result.reply->status, row.status);
    }
  });
}

TEST_P(EchoSocketsTest, ForeignTrafficDoesNotProlongTheWait) {
  inOwnNetwork([] {
    test::stopAnsweringEchoes();
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
  inOwnNetwork([] {
    test::stopAnsweringEchoes();
    const auto start = Clock::now();
    EchoRequest request = requestTo(kThisMachine);
    request.isAbandoned = [&] { return elapsedSince(start) > milliseconds(150); };
    EXPECT_FALSE(systemEcho()->echo(request).reply);
    EXPECT_LT(elapsedSince(start), milliseconds(2000));
  });
}

TEST_P(EchoSocketsTest, TellsRepliesOfManyApart) {
  inOwnNetwork([] {
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
  inOwnNetwork([] {
    test::stopAnsweringEchoes();
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
  test::runInOwnNetwork(EchoSockets::Datagram, [] {
    test::stopAnsweringEchoes();
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

// What DoPing tells of a host, and how long it took.
struct Told {
  std::vector<std::string> events;
  milliseconds elapsed;
};

Told tellOf(std::string_view host) {
  Told told{};
  Ping ping;
  ping.onPingOK([&](std::int32_t&) { told.events.emplace_back("ok"); });
  ping.onPingError([&](std::string_view peErrDescription) { told.events.emplace_back(peErrDescription); });
  const auto start = Clock::now();
  ping.DoPing(host);
  told.elapsed = elapsedSince(start);
  return told;
}

TEST_P(EchoSocketsTest, ARouterSaysWhatItCannotReach) {
  inOwnNetwork([] {
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
  test::runInOwnNetwork(EchoSockets::Datagram, [] {
    test::stopAnsweringEchoes();
    const Told told = tellOf("127.0.0.1");
    EXPECT_EQ(told.events, std::vector<std::string>{"Ping failed, error = 0"});
    EXPECT_GE(told.elapsed, milliseconds(10000));
    EXPECT_LT(told.elapsed, milliseconds(11000));
  });
}

}  // namespace
}  // namespace qvn::system
