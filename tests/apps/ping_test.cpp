#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "tests/apps/run_program.h"
#include "tests/support/echo_responder.h"
#include "tests/support/own_network.h"

namespace qvn::test {
namespace {

using Words = std::vector<std::string>;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

Call ping(Words arguments) {
  arguments.insert(arguments.begin(), "ping");
  return {.arguments = std::move(arguments)};
}

std::ptrdiff_t linesOf(const std::string& text) { return std::ranges::count(text, '\n'); }

TEST(PingCommand, WritesALineForEachReply) {
  runInOwnNetwork(EchoSockets::Datagram, [] {
    const std::string out = expectRun(0, ping({"-n", "3", "-i", "0.1", "localhost"})).out;
    expectHolds(out, {"ecos a localhost (127.0.0.1)\n1: respuesta en 0.", "\n2: respuesta en ", "\n3: respuesta en ",
                      " ms\n3 enviados, 3 recibidos, 0 % perdido\nmínimo ", " ms, medio ", " ms, máximo "});
    EXPECT_EQ(linesOf(out), 6);
  });
}

TEST(PingCommand, WaitsAsLongAsItIsToldAndCountsWhatIsLost) {
  runInOwnNetwork(EchoSockets::Datagram, [] {
    stopAnsweringEchoes();
    int requests = 0;
    const EchoResponder everySecond([&requests](const PacketBytes& request) {
      return ++requests % 2 == 0 ? std::vector<Answer>{{replyTo(request)}} : std::vector<Answer>{};
    });
    const auto start = Clock::now();
    const std::string out = expectRun(0, ping({"-n4", "-i0", "-W0.2", "127.0.0.1"})).out;
    expectHolds(out, {"\n1: sin respuesta en 0.2 s\n2: respuesta en ", "\n3: sin respuesta en 0.2 s\n4: respuesta en ",
                      "4 enviados, 2 recibidos, 50 % perdido\n"});
    EXPECT_GE(Clock::now() - start, milliseconds(400));
    EXPECT_LT(Clock::now() - start, milliseconds(3000));
  });
}

TEST(PingCommand, EndsWith1WithoutAReply) {
  runInOwnNetwork(EchoSockets::Datagram, [] {
    EXPECT_EQ(expectRun(1, ping({"-n", "2", "-i", "0", "10.1.2.3"})).out,
              "ecos a 10.1.2.3 (10.1.2.3)\n1: no se envió: no hay camino hacia esa red\n"
              "2: no se envió: no hay camino hacia esa red\n2 enviados, 0 recibidos, 100 % perdido\n");
    EXPECT_EQ(expectRun(1, ping({"no hay.invalid"}), {"no se encontró la dirección de «no hay.invalid»"}).out, "");
  });
  runInOwnNetwork(EchoSockets::None, [] {
    giveUpRawSockets();
    expectRun(1, ping({"127.0.0.1"}), {"net.ipv4.ping_group_range", "error 70"});
  });
}

// What an endless one writes that is interrupted once a reply is there, usually in the wait for the second one.
std::string interruptedPing() {
  constexpr const char* kInterrupt =
      ": > out; \"$0\" ping -n 0 -i 0 127.0.0.1 > out & "
      "until grep -q respuesta out; do sleep 0.02; done; kill -INT $!; wait $!";
  const ScratchFolder folder;
  const Outcome outcome =
      run({.arguments = {"-c", kInterrupt, QVN_PROGRAM}, .folder = folder.folder(), .program = "/bin/sh"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  return bytesOf(folder.folder() / "out");
}

TEST(PingCommand, CtrlCEndsItWithItsStatistics) {
  runInOwnNetwork(EchoSockets::Datagram, [] {
    stopAnsweringEchoes();
    int requests = 0;
    const EchoResponder onlyTheFirst([&requests](const PacketBytes& request) {
      return ++requests == 1 ? std::vector<Answer>{{replyTo(request)}} : std::vector<Answer>{};
    });
    const auto start = Clock::now();
    const std::string out = interruptedPing();
    EXPECT_LT(Clock::now() - start, milliseconds(5000));
    expectHolds(out, {"\n1: respuesta en ", "\n1 enviado, 1 recibido, 0 % perdido\n"});
    EXPECT_EQ(out.find("\n2: "), std::string::npos) << out;
  });
}

}  // namespace
}  // namespace qvn::test
