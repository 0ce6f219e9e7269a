#include "tests/support/echo_responder.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <bit>
#include <cerrno>
#include <system_error>
#include <utility>

namespace qvn::test {
namespace {

constexpr std::size_t kIpHeaderSize = 20;
constexpr std::size_t kIcmpHeaderSize = 8;
constexpr std::uint8_t kEchoReply = 0;
constexpr std::uint8_t kEchoRequest = 8;

int rawSocket() {
  const int descriptor = socket(AF_INET, SOCK_RAW | SOCK_CLOEXEC, IPPROTO_ICMP);
  if (descriptor < 0) throw std::system_error(errno, std::generic_category(), "raw socket");
  return descriptor;
}

sockaddr_in addressOf(std::array<std::uint8_t, 4> address) {
  sockaddr_in end{};
  end.sin_family = AF_INET;
  end.sin_addr = std::bit_cast<in_addr>(address);
  return end;
}

}  // namespace

EchoResponder::EchoResponder(Script script, std::function<void()> afterwards)
    : script_(std::move(script)),
      afterwards_(std::move(afterwards)),
      socket_(rawSocket()),
      thread_([this] { run(); }) {}

EchoResponder::~EchoResponder() {
  isEnding_ = true;
  thread_.join();
  close(socket_);
}

std::vector<PacketBytes> EchoResponder::requests() const {
  const std::lock_guard lock(mutex_);
  return requests_;
}

void EchoResponder::run() {
  constexpr int kPollMilliseconds = 20;
  while (!isEnding_) {
    pollfd ready{socket_, POLLIN, 0};
    if (poll(&ready, 1, kPollMilliseconds) <= 0) continue;
    PacketBytes packet(1500);
    const ssize_t size = recv(socket_, packet.data(), packet.size(), MSG_DONTWAIT);
    if (size <= static_cast<ssize_t>(kIpHeaderSize) || packet[kIpHeaderSize] != kEchoRequest) continue;
    packet.resize(static_cast<std::size_t>(size));
    {
      const std::lock_guard lock(mutex_);
      requests_.push_back(packet);
    }
    for (const Answer& each : script_(packet)) {
      if (isEnding_) return;
      std::this_thread::sleep_for(each.pause);
      answer(each);
    }
    afterwards_();
  }
}

void EchoResponder::answer(const Answer& answer) const {
  const int sender = rawSocket();
  const sockaddr_in from = addressOf(answer.from);
  const sockaddr_in to = addressOf({127, 0, 0, 1});
  if (bind(sender, reinterpret_cast<const sockaddr*>(&from), sizeof from) == 0) {
    sendto(sender, answer.message.data(), answer.message.size(), 0, reinterpret_cast<const sockaddr*>(&to), sizeof to);
  }
  close(sender);
}

PacketBytes replyTo(const PacketBytes& request) {
  PacketBytes message(request.begin() + kIpHeaderSize, request.end());
  message[0] = kEchoReply;
  return withChecksum(std::move(message));
}

PacketBytes errorAbout(const PacketBytes& request, std::uint8_t type, std::uint8_t code) {
  PacketBytes message = {type, code, 0, 0, 0, 0, 0, 0};
  message.insert(message.end(), request.begin(), request.begin() + kIpHeaderSize + kIcmpHeaderSize);
  return withChecksum(std::move(message));
}

PacketBytes withChange(PacketBytes message, std::size_t offset) {
  message[offset] = static_cast<std::uint8_t>(message[offset] ^ 1U);
  return withChecksum(std::move(message));
}

PacketBytes withChecksum(PacketBytes message) {
  message[2] = message[3] = 0;
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i < message.size(); ++i) sum += i % 2 == 0 ? message[i] * 256U : message[i];
  sum = (sum & 0xFFFF) + (sum >> 16);
  sum = ~((sum & 0xFFFF) + (sum >> 16));
  message[2] = static_cast<std::uint8_t>(sum >> 8);
  message[3] = static_cast<std::uint8_t>(sum);
  return message;
}

}  // namespace qvn::test
