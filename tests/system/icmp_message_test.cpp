#include "qvn/system/icmp_message.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/echo_responder.h"

namespace qvn::system {
namespace {

using test::withChecksum;
using Bytes = test::PacketBytes;

constexpr std::size_t kHeaderSize = 8;

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

Bytes flipped(Bytes message, std::size_t bit) {
  message[bit / 8] = static_cast<std::uint8_t>(message[bit / 8] ^ (1U << bit % 8));
  return message;
}

bool isOfChecksum(std::size_t bit) { return bit / 8 == 2 || bit / 8 == 3; }

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

// The checksum is made right again where nothing but the change itself shall tell.
TEST(EchoReply, IsOnlyWhatRepeatsTheRequest) {
  EXPECT_TRUE(isReplyTo(kSent, kHost, kReply));
  EXPECT_FALSE(isReplyTo(kSent, kHost, withChecksum(joined(kReply, {'d'})))) << "more payload";
  EXPECT_FALSE(isReplyTo(kSent, kHost, joined(kReply, {0}))) << "a zero more, which leaves the checksum as it was";
  for (std::size_t size = 0; size < kReply.size(); ++size) {
    EXPECT_FALSE(isReplyTo(kSent, kHost, cut(kReply, size))) << size;
    if (size >= kHeaderSize) {
      EXPECT_FALSE(isReplyTo(kSent, kHost, withChecksum(cut(kReply, size)))) << size;
    }
  }
  for (std::size_t bit = 0; bit < kReply.size() * 8; ++bit) {
    const Bytes damaged = flipped(kReply, bit);
    EXPECT_FALSE(isReplyTo(kSent, kHost, damaged)) << "bit " << bit;
    EXPECT_EQ(isReplyTo(kSent, kHost, withChecksum(damaged)), isOfChecksum(bit)) << "bit " << bit;
  }
}

// A router quotes eight bytes at the least, and one on the way may have changed the checksum.
TEST(QuotedRequest, IsOursByItsHeaderAndWhatIsThereOfThePayload) {
  EXPECT_TRUE(isQuoteOf(kSent, kHost, joined(kRequest, Bytes(117)))) << "padded, as RFC 4884 has it";
  for (std::size_t size = 0; size <= kRequest.size(); ++size) {
    EXPECT_EQ(isQuoteOf(kSent, kHost, cut(kRequest, size)), size >= kHeaderSize) << size;
    for (std::size_t bit = 0; bit < size * 8; ++bit) {
      const bool expected = size >= kHeaderSize && isOfChecksum(bit);
      EXPECT_EQ(isQuoteOf(kSent, kHost, cut(flipped(kRequest, bit), size)), expected) << size << ", bit " << bit;
    }
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
