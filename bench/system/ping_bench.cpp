// An echo from this machine beside a bare program that opens a raw socket for it, sends it and reads until it is back.
// Both do so in a network of their own, which gives this process the right to.
#include <benchmark/benchmark.h>
#include <net/if.h>
#include <netinet/in.h>
#include <netinet/ip_icmp.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bench/support/peer_report.h"
#include "qvn/system/ping.h"

namespace qvn::bench {
namespace {

constexpr std::uint16_t kIdentifier = 0x5A5A;
constexpr std::string_view kPayload = "Echo this string of data";

struct Echo {
  icmphdr header;
  std::array<char, kPayload.size()> payload;
};

std::uint16_t checksum(const Echo& echo) {
  std::array<std::uint16_t, sizeof echo / 2> words{};
  std::memcpy(words.data(), &echo, sizeof echo);
  std::uint32_t sum = 0;
  for (const std::uint16_t word : words) sum += word;
  sum = (sum >> 16) + (sum & 0xFFFF);
  return static_cast<std::uint16_t>(~(sum + (sum >> 16)));
}

void echoRaw(std::uint16_t sequence) {
  const int raw = socket(AF_INET, SOCK_RAW | SOCK_CLOEXEC, IPPROTO_ICMP);
  const int timeToLive = 255;
  const timeval timeout{10, 0};
  setsockopt(raw, IPPROTO_IP, IP_TTL, &timeToLive, sizeof timeToLive);
  setsockopt(raw, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
  Echo echo{};
  echo.header.type = ICMP_ECHO;
  echo.header.un.echo.id = kIdentifier;
  echo.header.un.echo.sequence = sequence;
  std::memcpy(echo.payload.data(), kPayload.data(), kPayload.size());
  echo.header.checksum = checksum(echo);
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (sendto(raw, &echo, sizeof echo, 0, reinterpret_cast<sockaddr*>(&to), sizeof to) < 0) std::abort();
  std::array<char, 1500> packet{};
  Echo back{};
  do {
    if (recv(raw, packet.data(), packet.size(), 0) < static_cast<ssize_t>(20 + sizeof back)) std::abort();
    std::memcpy(&back, packet.data() + 20, sizeof back);
  } while (back.header.type != ICMP_ECHOREPLY || back.header.un.echo.id != kIdentifier ||
           back.header.un.echo.sequence != sequence || back.payload != echo.payload);
  close(raw);
}

void pingRaw(benchmark::State& state) {
  std::uint16_t sequence = 0;
  for (auto _ : state) echoRaw(++sequence);
}

void ping(benchmark::State& state) {
  system::Ping ping;
  for (auto _ : state) {
    if (!ping.DoPing("127.0.0.1")) std::abort();
  }
}

bool enterOwnNetwork() {
  if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) return false;
  const int any = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  ifreq loopback{};
  std::snprintf(loopback.ifr_name, sizeof loopback.ifr_name, "lo");
  loopback.ifr_flags = IFF_UP;
  const bool isUp = ioctl(any, SIOCSIFFLAGS, &loopback) == 0;
  close(any);
  return isUp;
}

}  // namespace
}  // namespace qvn::bench

int main(int argc, char** argv) {
  using namespace qvn::bench;
  if (!enterOwnNetwork()) {
    std::fputs("the system gives this user no network of its own\n", stderr);
    return 1;
  }
  benchmark::RegisterBenchmark("ping/qvn", ping)->Unit(benchmark::kMicrosecond)->UseRealTime();
  benchmark::RegisterBenchmark("ping/raw", pingRaw)->Unit(benchmark::kMicrosecond)->UseRealTime();
  return runBesidePeers(argc, argv);
}
