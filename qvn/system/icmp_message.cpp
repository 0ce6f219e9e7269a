#include "qvn/system/icmp_message.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace qvn::system {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint8_t kEchoReply = 0;
constexpr std::uint8_t kEchoRequest = 8;
// Type, code, checksum, identifier and sequence.
constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kChecksumOffset = 2;
constexpr std::size_t kIdentifierOffset = 4;
constexpr std::size_t kSequenceOffset = 6;

// IPv4 headers (RFC 791).
constexpr std::size_t kIpHeaderSize = 20;
constexpr std::size_t kIpLengthOffset = 2;
constexpr std::size_t kIpFragmentOffset = 6;
constexpr std::size_t kIpProtocolOffset = 9;
constexpr std::size_t kIpSourceOffset = 12;
constexpr std::uint16_t kMoreFragments = 0x2000;
constexpr std::uint16_t kFragmentPosition = 0x1FFF;
constexpr std::uint8_t kIcmpProtocol = 1;

// Statuses as the documentation of IP_STATUS numbers them; codes of RFC 792, RFC 1122 (6 to 12) and RFC 1812 (13 to
// 15). Sorted, the last row of a type standing for its codes that have no row.
struct StatusRule {
  std::uint8_t type;
  std::uint8_t code;
  std::uint32_t status;
};
// clang-format off
constexpr auto kStatusRules = std::to_array<StatusRule>({
    {3, 0, 11002},    // net unreachable
    {3, 1, 11003},    // host unreachable
    {3, 2, 11004},    // protocol unreachable
    {3, 3, 11005},    // port unreachable
    {3, 4, 11009},    // packet too big
    {3, 5, 11012},    // bad route: the source route failed
    {3, 6, 11002},    // net unknown
    {3, 7, 11003},    // host unknown
    {3, 8, 11003},    // the source host is isolated
    {3, 9, 11002},    // net prohibited
    {3, 10, 11003},   // host prohibited
    {3, 11, 11002},   // net unreachable for this type of service
    {3, 12, 11003},   // host unreachable for this type of service
    {3, 13, 11002},   // prohibited by a filter
    {3, 255, 11003},
    {11, 0, 11013},   // time to live expired on the way
    {11, 255, 11014}, // time expired while fragments were awaited
    {12, 255, 11015}, // parameter problem
});
// clang-format on
static_assert(std::ranges::is_sorted(kStatusRules, [](const StatusRule& left, const StatusRule& right) {
  return left.type != right.type ? left.type < right.type : left.code < right.code;
}));

std::uint16_t wordAt(Bytes bytes, std::size_t offset) {
  return static_cast<std::uint16_t>(bytes[offset] << 8 | bytes[offset + 1]);
}

void putWord(std::vector<std::uint8_t>& bytes, std::size_t offset, std::uint16_t word) {
  bytes[offset] = static_cast<std::uint8_t>(word >> 8);
  bytes[offset + 1] = static_cast<std::uint8_t>(word & 0xFF);
}

bool hasHeader(Bytes message, std::uint8_t type, const SentEcho& sent) {
  return message.size() >= kHeaderSize && message[0] == type && message[1] == 0 &&
         wordAt(message, kIdentifierOffset) == sent.identifier && wordAt(message, kSequenceOffset) == sent.sequence;
}

bool standsForOthers(Ipv4Address address) {
  const bool isGroup = (address[0] & 0xF0) == 0xE0;
  return isGroup || address == Ipv4Address{};
}

bool mayBe(Ipv4Address seen, Ipv4Address destination) { return seen == destination || standsForOthers(destination); }

bool isSame(std::uint8_t byte, char character) { return byte == static_cast<std::uint8_t>(character); }

}  // namespace

std::uint16_t internetChecksum(Bytes bytes) {
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) sum += wordAt(bytes, i);
  if (bytes.size() % 2 != 0) sum += static_cast<std::uint64_t>(bytes.back()) << 8;
  while (sum > 0xFFFF) sum = (sum & 0xFFFF) + (sum >> 16);
  return static_cast<std::uint16_t>(~sum & 0xFFFF);
}

std::vector<std::uint8_t> echoRequestMessage(const SentEcho& echo) {
  std::vector<std::uint8_t> message(kHeaderSize + echo.payload.size());
  message[0] = kEchoRequest;
  putWord(message, kIdentifierOffset, echo.identifier);
  putWord(message, kSequenceOffset, echo.sequence);
  std::ranges::copy(echo.payload, message.begin() + kHeaderSize);
  putWord(message, kChecksumOffset, internetChecksum(message));
  return message;
}

std::optional<IcmpPacket> icmpOf(Bytes packet) {
  if (packet.size() < kIpHeaderSize || packet[0] >> 4 != 4 || packet[kIpProtocolOffset] != kIcmpProtocol) {
    return std::nullopt;
  }
  const std::size_t headerSize = (packet[0] & 0x0FU) * std::size_t{4};
  const std::size_t size = wordAt(packet, kIpLengthOffset);
  const bool isFragment = (wordAt(packet, kIpFragmentOffset) & (kMoreFragments | kFragmentPosition)) != 0;
  if (isFragment || headerSize < kIpHeaderSize || size < headerSize || size > packet.size()) return std::nullopt;
  IcmpPacket icmp{};
  std::ranges::copy(packet.subspan(kIpSourceOffset, icmp.source.size()), icmp.source.begin());
  icmp.message = packet.subspan(headerSize, size - headerSize);
  return icmp;
}

bool isReplyTo(const SentEcho& sent, Ipv4Address source, Bytes message) {
  return mayBe(source, sent.destination) && hasHeader(message, kEchoReply, sent) && internetChecksum(message) == 0 &&
         std::ranges::equal(message.subspan(kHeaderSize), sent.payload, isSame);
}

bool isQuoteOf(const SentEcho& sent, Ipv4Address destination, Bytes quoted) {
  if (!mayBe(destination, sent.destination) || !hasHeader(quoted, kEchoRequest, sent)) return false;
  // Behind the payload a router may add information of its own (RFC 4884).
  const Bytes rest = quoted.subspan(kHeaderSize);
  const std::size_t shared = std::min(rest.size(), sent.payload.size());
  return std::ranges::equal(rest.first(shared), sent.payload.substr(0, shared), isSame);
}

std::optional<std::uint32_t> statusOfError(std::uint8_t type, std::uint8_t code) {
  const auto* rule =
      std::ranges::find_if(kStatusRules, [&](const StatusRule& row) { return row.type == type && row.code >= code; });
  if (rule == kStatusRules.end()) return std::nullopt;
  return rule->status;
}

}  // namespace qvn::system
