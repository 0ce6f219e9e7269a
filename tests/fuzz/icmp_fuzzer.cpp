// Reading any packet: nothing outside it is read, and what counts as a reply or as a quoted request holds the bytes
// that were sent.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "qvn/system/icmp_message.h"

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr qvn::system::SentEcho kSent = {{10, 9, 0, 2}, 0x1234, 0x0002, "abc"};
constexpr std::size_t kHeaderSize = 8;

void require(bool holds) {
  if (!holds) std::abort();
}

// Identifier, sequence and the first bytes of the payload.
bool repeats(Bytes message, Bytes sent, std::size_t size) {
  return std::ranges::equal(message.subspan(4, size - 4), sent.subspan(4, size - 4));
}

void check(Bytes message) {
  const auto request = qvn::system::echoRequestMessage(kSent);
  if (qvn::system::isReplyTo(kSent, kSent.destination, message)) {
    require(message.size() == request.size() && message[0] == 0 && message[1] == 0);
    require(repeats(message, request, request.size()));
    require(qvn::system::internetChecksum(message) == 0);
  }
  if (qvn::system::isQuoteOf(kSent, kSent.destination, message)) {
    require(message.size() >= kHeaderSize && message[0] == 8 && message[1] == 0);
    require(repeats(message, request, std::min(message.size(), request.size())));
  }
  if (message.size() >= 2) {
    const auto status = qvn::system::statusOfError(message[0], message[1]);
    require(!status || (*status > 11000 && *status < 11020));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Bytes packet(data, size);
  check(packet);
  if (const auto icmp = qvn::system::icmpOf(packet)) {
    require(icmp->message.data() >= data && icmp->message.size() <= size);
    require(icmp->message.empty() || &icmp->message.back() < data + size);
    check(icmp->message);
  }
  return 0;
}
