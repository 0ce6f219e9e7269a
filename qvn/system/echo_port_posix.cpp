#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstring>
#include <random>
#include <utility>

// The first one needs a declaration that it does not ask for.
#include <linux/errqueue.h>
#include <linux/icmp.h>

#include "qvn/system/echo_port.h"
#include "qvn/system/icmp_message.h"

namespace qvn::system {
namespace {

using Clock = std::chrono::steady_clock;

// How late the end of a wait that is abandoned may be noticed.
constexpr std::chrono::milliseconds kLongestPoll{100};

struct IpOption {
  int name;
  int value;
};

// A socket for ICMP. The kind that everyone may be allowed to use comes first; there the system chooses the identifier
// and hands over messages without their IP headers.
class EchoSocket {
 public:
  explicit EchoSocket(std::uint8_t timeToLive) {
    descriptor_ = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, IPPROTO_ICMP);
    isRaw_ = descriptor_ < 0;
    if (isRaw_) descriptor_ = socket(AF_INET, SOCK_RAW | SOCK_CLOEXEC, IPPROTO_ICMP);
    if (descriptor_ < 0) {
      openError_ = errno;
      return;
    }
    // Errors that routers report are kept in a queue apart; packets may be fragmented, and have no other flag either.
    const auto options = std::to_array<IpOption>(
        {{IP_TTL, timeToLive}, {IP_MULTICAST_TTL, timeToLive}, {IP_MTU_DISCOVER, IP_PMTUDISC_DONT}, {IP_RECVERR, 1}});
    for (const IpOption& option : options) {
      setsockopt(descriptor_, IPPROTO_IP, option.name, &option.value, sizeof option.value);
    }
    const icmp_filter onlyReplies{~(1U << ICMP_ECHOREPLY)};
    if (isRaw_) setsockopt(descriptor_, SOL_RAW, ICMP_FILTER, &onlyReplies, sizeof onlyReplies);
  }
  ~EchoSocket() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  EchoSocket(const EchoSocket&) = delete;
  EchoSocket& operator=(const EchoSocket&) = delete;

  /// Sends the request and stores in it the identifier under which it left. The error number, 0 for none.
  int send(SentEcho& echo) const {
    if (descriptor_ < 0) return openError_;
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_addr = std::bit_cast<in_addr>(echo.destination);
    const auto message = echoRequestMessage(echo);
    while (sendto(descriptor_, message.data(), message.size(), 0, reinterpret_cast<const sockaddr*>(&to), sizeof to) <
           0) {
      if (errno != EINTR) return errno;
    }
    if (!isRaw_) echo.identifier = ownPort();
    return 0;
  }

  /// The status of the request if a message about it is there, or comes while this waits.
  std::optional<std::uint32_t> receive(const SentEcho& sent, std::chrono::nanoseconds longest) {
    pollfd ready{descriptor_, POLLIN, 0};
    const auto wait = std::min(std::chrono::ceil<std::chrono::milliseconds>(longest), kLongestPoll);
    if (poll(&ready, 1, static_cast<int>(wait.count())) <= 0) return std::nullopt;
    if ((ready.revents & POLLERR) != 0) {
      if (const auto status = receiveError(sent)) return status;
    }
    return receiveReply(sent) ? std::optional<std::uint32_t>(0) : std::nullopt;
  }

 private:
  std::uint16_t ownPort() const {
    sockaddr_in own{};
    socklen_t size = sizeof own;
    getsockname(descriptor_, reinterpret_cast<sockaddr*>(&own), &size);
    return ntohs(own.sin_port);
  }

  bool receiveReply(const SentEcho& sent) {
    sockaddr_in from{};
    socklen_t size = sizeof from;
    const ssize_t count =
        recvfrom(descriptor_, buffer_.data(), buffer_.size(), MSG_DONTWAIT, reinterpret_cast<sockaddr*>(&from), &size);
    if (count < 0) return false;
    const std::span<const std::uint8_t> bytes(buffer_.data(), static_cast<std::size_t>(count));
    if (!isRaw_) return isReplyTo(sent, std::bit_cast<Ipv4Address>(from.sin_addr), bytes);
    const auto icmp = icmpOf(bytes);
    return icmp && isReplyTo(sent, icmp->source, icmp->message);
  }

  std::optional<std::uint32_t> receiveError(const SentEcho& sent) {
    sockaddr_in destination{};
    iovec quoted{buffer_.data(), buffer_.size()};
    alignas(cmsghdr) std::array<std::uint8_t, 256> control{};
    msghdr message{};
    message.msg_name = &destination;
    message.msg_namelen = sizeof destination;
    message.msg_iov = &quoted;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    const ssize_t count = recvmsg(descriptor_, &message, MSG_ERRQUEUE | MSG_DONTWAIT);
    if (count < 0) return std::nullopt;
    const std::span<const std::uint8_t> bytes(buffer_.data(), static_cast<std::size_t>(count));
    if (!isQuoteOf(sent, std::bit_cast<Ipv4Address>(destination.sin_addr), bytes)) return std::nullopt;
    return statusIn(message);
  }

  static std::optional<std::uint32_t> statusIn(msghdr& message) {
    for (cmsghdr* part = CMSG_FIRSTHDR(&message); part != nullptr; part = CMSG_NXTHDR(&message, part)) {
      if (part->cmsg_level != IPPROTO_IP || part->cmsg_type != IP_RECVERR) continue;
      sock_extended_err error{};
      std::memcpy(&error, CMSG_DATA(part), sizeof error);
      if (error.ee_origin == SO_EE_ORIGIN_ICMP) return statusOfError(error.ee_type, error.ee_code);
    }
    return std::nullopt;
  }

  int descriptor_;
  int openError_ = 0;
  bool isRaw_;
  // Larger than any reply to what is sent here; of a longer message the rest is of no use.
  std::array<std::uint8_t, 2048> buffer_;
};

class SystemEcho final : public EchoPort {
 public:
  EchoResult echo(const EchoRequest& request) override {
    EchoSocket socket(request.timeToLive);
    SentEcho sent{request.address, randomWord(), randomWord(), request.payload};
    const auto start = Clock::now();
    if (const int error = socket.send(sent); error != 0) return {.reply = {}, .systemError = error};
    const auto deadline = start + request.timeout;
    for (auto now = Clock::now(); now < deadline; now = Clock::now()) {
      if (request.isAbandoned && request.isAbandoned()) break;
      if (const auto status = socket.receive(sent, deadline - now)) {
        return {.reply = EchoReply{*status, std::chrono::floor<std::chrono::microseconds>(Clock::now() - start)}};
      }
    }
    return {};
  }

 private:
  // Nobody outside the path of the request can tell what a reply must repeat.
  std::uint16_t randomWord() { return static_cast<std::uint16_t>(chance_()); }

  std::random_device chance_;
};

}  // namespace

std::shared_ptr<EchoPort> systemEcho() { return std::make_shared<SystemEcho>(); }

}  // namespace qvn::system
