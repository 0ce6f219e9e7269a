#include "qvn/system/icmp_message.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace qvn::system {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr Ipv4Address kHost = {192, 168, 1, 20};
constexpr SentEcho kSent = {kHost, 0x1234, 0x0002, "abc"};

// By hand: 0800 + 1234 + 0002 + 6162 + 6300 = DE98, whose complement is 2167; without the 0800 it is 2967.
const Bytes kRequest = {8, 0, 0x21, 0x67, 0x12, 0x34, 0x00, 0x02, 'a', 'b', 'c'};
const Bytes kReply = {0, 0, 0x29, 0x67, 0x12, 0x34, 0x00, 0x02, 'a', 'b', 'c'};

Bytes joined(Bytes first, const Bytes& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

Bytes cut(const Bytes& bytes, std::size_t size) {
  return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

// With its checksum made right again, so that nothing but the change itself can tell.
Bytes changed(Bytes message, std::size_t offset, std::uint8_t byte) {
  message[offset] = byte;
  message[2] = message[3] = 0;
  const std::uint16_t sum = internetChecksum(message);
  message[2] = static_cast<std::uint8_t>(sum >> 8);
  message[3] = static_cast<std::uint8_t>(sum & 0xFF);
  return message;
}

Bytes packet(const Bytes& message, const Bytes& options = {}) {
  const auto words = static_cast<std::uint8_t>(5 + options.size() / 4);
  const auto size = static_cast<std::uint8_t>(20 + options.size() + message.size());
  const Bytes header = {
      static_cast<std::uint8_t>(0x40 | words), 0, 0, size, 0, 7, 0, 0, 64, 1, 0, 0, 192, 168, 1, 20, 10, 0, 0, 1};
  return joined(joined(header, options), message);
}

TEST(InternetChecksum, MatchesSumsMadeByHand) {
  struct Row {
    const char* why;
    Bytes bytes;
    std::uint16_t expected;
  };
  const Row rows[] = {
      {"nothing", {}, 0xFFFF},
      {"the example of RFC 1071, section 3: the sum is DDF2", {0x00, 0x01, 0xF2, 0x03, 0xF4, 0xF5, 0xF6, 0xF7}, 0x220D},
      {"an odd byte is the high half of a word", {0x12}, 0xEDFF},
      {"a carry that carries again: FFFF + FFFF + 0001 = 0001", {0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x01}, 0xFFFE},
      {"a message with its own checksum", kRequest, 0},
  };
  for (const Row& row : rows) EXPECT_EQ(internetChecksum(row.bytes), row.expected) << row.why;
}

TEST(EchoRequest, IsTheMessageOfRfc792) {
  EXPECT_EQ(echoRequestMessage(kSent), kRequest);
  EXPECT_EQ(echoRequestMessage({kHost, 0, 0, ""}), (Bytes{8, 0, 0xF7, 0xFF, 0, 0, 0, 0}));
}

TEST(EchoReply, IsOnlyWhatRepeatsTheRequest) {
  EXPECT_TRUE(isReplyTo(kSent, kHost, kReply));
  struct Row {
    const char* why;
    Bytes message;
  };
  const Row rows[] = {
      {"our own request, as it comes back on the loopback", kRequest},
      {"another type", changed(kReply, 0, 3)},
      {"another code", changed(kReply, 1, 1)},
      {"another identifier, high byte", changed(kReply, 4, 0x13)},
      {"another identifier, low byte", changed(kReply, 5, 0x35)},
      {"another sequence, high byte", changed(kReply, 6, 1)},
      {"another sequence, low byte", changed(kReply, 7, 1)},
      {"another payload", changed(kReply, 10, 'd')},
      {"more payload", changed(joined(kReply, {'d'}), 8, 'a')},
      {"a zero more, which leaves the checksum as it was", joined(kReply, {0})},
  };
  for (const Row& row : rows) EXPECT_FALSE(isReplyTo(kSent, kHost, row.message)) << row.why;
  for (std::size_t size = 0; size < kReply.size(); ++size) {
    EXPECT_FALSE(isReplyTo(kSent, kHost, cut(kReply, size))) << size;
    if (size >= 8) {
      EXPECT_FALSE(isReplyTo(kSent, kHost, changed(cut(kReply, size), 0, 0))) << size;
    }
  }
  for (std::size_t bit = 0; bit < kReply.size() * 8; ++bit) {
    Bytes damaged = kReply;
    damaged[bit / 8] = static_cast<std::uint8_t>(damaged[bit / 8] ^ (1U << bit % 8));
    EXPECT_FALSE(isReplyTo(kSent, kHost, damaged)) << "bit " << bit;
  }
}

TEST(EchoReply, ComesFromTheHostThatWasAsked) {
  struct Row {
    const char* why;
    Ipv4Address asked;
    Ipv4Address source;
    bool expected;
  };
  constexpr Row kRows[] = {
      {"the host", kHost, kHost, true},
      {"a neighbour", kHost, {192, 168, 1, 21}, false},
      {"this machine, asked without a name", {0, 0, 0, 0}, {127, 0, 0, 1}, true},
      {"a member of a group", {224, 0, 0, 1}, kHost, true},
      {"the last group", {239, 255, 255, 255}, kHost, true},
      {"below the groups", {223, 255, 255, 255}, kHost, false},
      {"above the groups", {240, 0, 0, 0}, kHost, false},
  };
  for (const Row& row : kRows) {
    SentEcho sent = kSent;
    sent.destination = row.asked;
    EXPECT_EQ(isReplyTo(sent, row.source, kReply), row.expected) << row.why;
    EXPECT_EQ(isQuoteOf(sent, row.source, kRequest), row.expected) << row.why;
  }
}

TEST(QuotedRequest, IsOursByItsHeaderAndWhatIsThereOfThePayload) {
  struct Row {
    const char* why;
    Bytes quoted;
    bool expected;
  };
  const Row rows[] = {
      {"all of it", kRequest, true},
      {"the eight bytes that every router quotes", cut(kRequest, 8), true},
      {"a part of the payload", cut(kRequest, 10), true},
      {"padded, as RFC 4884 has it", joined(kRequest, Bytes(117)), true},
      {"a checksum that a router on the way has changed", changed(kRequest, 2, 0), true},
      {"cut inside the header", cut(kRequest, 7), false},
      {"nothing", {}, false},
      {"a reply", kReply, false},
      {"another code", changed(kRequest, 1, 1), false},
      {"another identifier", changed(kRequest, 5, 0x35), false},
      {"another sequence", changed(kRequest, 7, 3), false},
      {"another payload", changed(kRequest, 8, 'b'), false},
      {"another payload, cut short", cut(changed(kRequest, 8, 'b'), 9), false},
  };
  for (const Row& row : rows) EXPECT_EQ(isQuoteOf(kSent, kHost, row.quoted), row.expected) << row.why;
}

TEST(IcmpPacket, IsFoundBehindHeadersOfAnyLength) {
  for (const std::size_t optionBytes : {0U, 4U, 40U}) {
    const Bytes whole = packet(kReply, Bytes(optionBytes));
    const Bytes behind = joined(whole, {1, 2, 3});
    for (const Bytes& bytes : {whole, behind}) {
      const auto icmp = icmpOf(bytes);
      ASSERT_TRUE(icmp) << optionBytes;
      EXPECT_EQ(icmp->source, kHost);
      EXPECT_TRUE(std::ranges::equal(icmp->message, kReply)) << optionBytes;
    }
    for (std::size_t size = 0; size < whole.size(); ++size) EXPECT_FALSE(icmpOf(cut(whole, size))) << size;
  }
}

TEST(IcmpPacket, IsNotFoundInOtherPackets) {
  struct Row {
    const char* why;
    std::size_t offset;
    std::uint8_t byte;
  };
  constexpr Row kRows[] = {
      {"version 6", 0, 0x65},        {"a header of 16 bytes", 0, 0x44}, {"a length that ends inside the header", 3, 19},
      {"a first fragment", 6, 0x20}, {"a later fragment", 6, 0x01},     {"a later fragment, low byte", 7, 0x01},
      {"another protocol", 9, 17},
  };
  for (const Row& row : kRows) {
    Bytes bytes = packet(kReply);
    bytes[row.offset] = row.byte;
    EXPECT_FALSE(icmpOf(bytes)) << row.why;
  }
  Bytes unfragmentable = packet(kReply);
  unfragmentable[6] = 0x40;
  EXPECT_TRUE(icmpOf(unfragmentable));
}

TEST(IcmpError, HasTheStatusOfItsTypeAndCode) {
  struct Row {
    std::uint8_t type;
    std::uint8_t code;
    std::optional<std::uint32_t> expected;
  };
  constexpr Row kRows[] = {
      {0, 0, {}},     {3, 0, 11002},  {3, 1, 11003},  {3, 2, 11004},   {3, 3, 11005}, {3, 4, 11009},  {3, 5, 11012},
      {3, 12, 11003}, {3, 13, 11002}, {3, 14, 11003}, {3, 255, 11003}, {4, 0, {}},    {5, 1, {}},     {8, 0, {}},
      {11, 0, 11013}, {11, 1, 11014}, {12, 0, 11015}, {12, 2, 11015},  {13, 0, {}},   {255, 255, {}},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(statusOfError(row.type, row.code), row.expected) << int{row.type} << "/" << int{row.code};
  }
}

}  // namespace
}  // namespace qvn::system
