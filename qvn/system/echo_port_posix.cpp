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
#include <linux/filter.h>
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

// Everyone may be allowed to use the first kind; there the system chooses the identifier and hands over messages
// without their IP headers.
enum class SocketKind { Datagram, Raw };

SocketKind otherThan(SocketKind kind) { return kind == SocketKind::Datagram ? SocketKind::Raw : SocketKind::Datagram; }

int openSocket(SocketKind kind) {
  return socket(AF_INET, (kind == SocketKind::Raw ? SOCK_RAW : SOCK_DGRAM) | SOCK_CLOEXEC, IPPROTO_ICMP);
}

// A socket for ICMP.
class EchoSocket {
 public:
  /// Tries the other kind of socket when the system does not give out the preferred one.
  EchoSocket(SocketKind preferred, std::uint8_t timeToLive) : descriptor_(openSocket(preferred)), kind_(preferred) {
    if (descriptor_ < 0) {
      kind_ = otherThan(preferred);
      descriptor_ = openSocket(kind_);
    }
    if (descriptor_ < 0) {
      // The two kinds are refused in two ways.
      openError_ = errno == EACCES ? EPERM : errno;
      return;
    }
    const icmp_filter onlyReplies{~(1U << ICMP_ECHOREPLY)};
    if (kind_ == SocketKind::Raw) setsockopt(descriptor_, SOL_RAW, ICMP_FILTER, &onlyReplies, sizeof onlyReplies);
    // Errors that routers report are kept in a queue apart; packets may be fragmented, and have no other flag either.
    const auto options = std::to_array<IpOption>(
        {{IP_TTL, timeToLive}, {IP_MULTICAST_TTL, timeToLive}, {IP_MTU_DISCOVER, IP_PMTUDISC_DONT}, {IP_RECVERR, 1}});
    for (const IpOption& option : options) {
      setsockopt(descriptor_, IPPROTO_IP, option.name, &option.value, sizeof option.value);
    }
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
    if (kind_ == SocketKind::Datagram) echo.identifier = ownPort();
    return 0;
  }

  /// The status of the request if the next message that has come is about it.
  std::optional<std::uint32_t> receive(const SentEcho& sent) {
    sockaddr_in from{};
    socklen_t size = sizeof from;
    const ssize_t count =
        recvfrom(descriptor_, buffer_.data(), buffer_.size(), MSG_DONTWAIT, reinterpret_cast<sockaddr*>(&from), &size);
    // An error stands for a report in the queue of errors.
    if (count < 0) return errno == EAGAIN ? std::nullopt : receiveError(sent);
    const std::span<const std::uint8_t> bytes(buffer_.data(), static_cast<std::size_t>(count));
    return isReply(sent, std::bit_cast<Ipv4Address>(from.sin_addr), bytes) ? std::optional<std::uint32_t>(0)
                                                                           : std::nullopt;
  }

  /// A raw socket is given the replies to all stations of this machine: enough of them would fill its queue, and the
  /// one that is awaited would be dropped. From here on the others stay out. It takes the system longer than an echo
  /// within this machine, so that it is left for when there is something to wait for.
  void keepOthersOut(const SentEcho& sent) {
    if (kind_ == SocketKind::Datagram || keepsOthersOut_) return;
    constexpr std::uint32_t kAll = 0xFFFFFFFF;
    std::array<sock_filter, 5> program = {{
        BPF_STMT(BPF_LDX | BPF_B | BPF_MSH, 0),  // the length of the IP header
        BPF_STMT(BPF_LD | BPF_H | BPF_IND, 4),   // identifier
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, sent.identifier, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, kAll),
        BPF_STMT(BPF_RET | BPF_K, 0),
    }};
    const sock_fprog filter{program.size(), program.data()};
    setsockopt(descriptor_, SOL_SOCKET, SO_ATTACH_FILTER, &filter, sizeof filter);
    keepsOthersOut_ = true;
  }

  void waitForMessage(std::chrono::nanoseconds longest) const {
    pollfd ready{descriptor_, POLLIN, 0};
    const auto wait = std::min(std::chrono::ceil<std::chrono::milliseconds>(longest), kLongestPoll);
    poll(&ready, 1, static_cast<int>(wait.count()));
  }

  [[nodiscard]] SocketKind kind() const { return kind_; }

 private:
  std::uint16_t ownPort() const {
    sockaddr_in own{};
    socklen_t size = sizeof own;
    getsockname(descriptor_, reinterpret_cast<sockaddr*>(&own), &size);
    return ntohs(own.sin_port);
  }

  bool isReply(const SentEcho& sent, Ipv4Address source, std::span<const std::uint8_t> bytes) const {
    if (kind_ == SocketKind::Datagram) return isReplyTo(sent, source, bytes);
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
  SocketKind kind_;
  bool keepsOthersOut_ = false;
  // Larger than any reply to what is sent here; of a longer message the rest is of no use.
  std::array<std::uint8_t, 2048> buffer_;
};

class SystemEcho final : public EchoPort {
 public:
  EchoResult echo(const EchoRequest& request) override {
    SentEcho sent = markedEcho(request);
    EchoSocket socket(preferred_, request.timeToLive);
    preferred_ = socket.kind();
    const auto start = Clock::now();
    if (const int error = socket.send(sent); error != 0) return {.reply = {}, .systemError = error};
    const auto deadline = start + request.timeout;
    while (true) {
      const auto status = socket.receive(sent);
      const auto now = Clock::now();
      if (status) return {.reply = EchoReply{*status, std::chrono::floor<std::chrono::microseconds>(now - start)}};
      socket.keepOthersOut(sent);
      if (now >= deadline || (request.isAbandoned && request.isAbandoned())) return {};
      socket.waitForMessage(deadline - now);
    }
  }

 private:
  // Nobody outside the path of the request can tell what its reply must repeat.
  SentEcho markedEcho(const EchoRequest& request) {
    const std::uint32_t mark = chance_();
    return {.destination = request.address,
            .identifier = static_cast<std::uint16_t>(mark >> 16),
            .sequence = static_cast<std::uint16_t>(mark & 0xFFFF),
            .payload = request.payload};
  }

  std::random_device chance_;
  // The kind that was given out last.
  SocketKind preferred_ = SocketKind::Datagram;
};

}  // namespace

std::shared_ptr<EchoPort> systemEcho() { return std::make_shared<SystemEcho>(); }

}  // namespace qvn::system
