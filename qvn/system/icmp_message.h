// ICMP messages as bytes (RFC 792): builds echo requests and tells what a received message says of one.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "qvn/system/ipv4_address.h"

namespace qvn::system {

/// An echo request on its way: what an answer to it must repeat.
struct SentEcho {
  Ipv4Address destination;
  std::uint16_t identifier;
  std::uint16_t sequence;
  std::string_view payload;
};

/// An ICMP message inside a packet, whose bytes it refers to.
struct IcmpPacket {
  Ipv4Address source;
  std::span<const std::uint8_t> message;
};

/// The Internet checksum (RFC 1071) of these bytes; 0 for a message that holds its own right checksum.
std::uint16_t internetChecksum(std::span<const std::uint8_t> bytes);

/// The request's message, checksum included.
std::vector<std::uint8_t> echoRequestMessage(const SentEcho& echo);

/// The ICMP message that an IPv4 packet carries; nothing when the packet is cut short, is a fragment, or holds
/// something else.
std::optional<IcmpPacket> icmpOf(std::span<const std::uint8_t> packet);

/// True when `message`, which came from `source`, is the reply to `sent`: its checksum is right and it repeats
/// identifier, sequence and all of the payload. Only an address that stands for other hosts (0.0.0.0, a group) may be
/// answered by another source.
bool isReplyTo(const SentEcho& sent, Ipv4Address source, std::span<const std::uint8_t> message);

/// True when `quoted` is what an ICMP error repeats of `sent`: its eight bytes of header, and of the payload as much as
/// is there. `destination` is where the quoted packet was going.
bool isQuoteOf(const SentEcho& sent, Ipv4Address destination, std::span<const std::uint8_t> quoted);

/// The status number of an ICMP error; nothing for messages that are no final word on a packet.
std::optional<std::uint32_t> statusOfError(std::uint8_t type, std::uint8_t code);

}  // namespace qvn::system
