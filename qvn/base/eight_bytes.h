// Texts eight bytes at a time, for the few places that go through every byte of much text.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace qvn::eight_bytes {

inline constexpr std::size_t kSize = sizeof(std::uint64_t);
inline constexpr std::size_t kHalf = kSize / 2;
inline constexpr std::uint64_t kEach = 0x0101010101010101;  // times a byte: that byte eight times
inline constexpr std::uint64_t kHighBits = kEach * 0x80;    // set in none of them: all are ASCII

/// The bytes from `at` on, before the end of the text; those beyond it are 0.
inline std::uint64_t load(std::string_view text, std::size_t at) noexcept {
  const char* const from = text.data() + at;
  const std::size_t left = text.size() - at;
  if (left >= kSize) {
    std::uint64_t word = 0;
    std::memcpy(&word, from, kSize);
    return word;
  }
  // Halves that overlap: a copy of as many bytes as there are would keep the processor waiting for its own stores.
  if (left >= kHalf) {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::memcpy(&first, from, kHalf);
    std::memcpy(&last, from + left - kHalf, kHalf);
    return first | static_cast<std::uint64_t>(last) << (8 * (left - kHalf));
  }
  std::uint64_t word = 0;
  for (std::size_t i = 0; i < left; ++i)
    word |= static_cast<std::uint64_t>(static_cast<unsigned char>(from[i])) << (8 * i);
  return word;
}

/// Writes the first `count` bytes, 8 at the most.
inline void store(std::uint64_t word, char* to, std::size_t count) noexcept {
  if (count >= kSize) {
    std::memcpy(to, &word, kSize);
  } else if (count >= kHalf) {
    const auto first = static_cast<std::uint32_t>(word);
    const auto last = static_cast<std::uint32_t>(word >> (8 * (count - kHalf)));
    std::memcpy(to, &first, kHalf);
    std::memcpy(to + count - kHalf, &last, kHalf);
  } else {
    for (std::size_t i = 0; i < count; ++i) to[i] = static_cast<char>(word >> (8 * i));
  }
}

/// Not 0 when a byte is `wanted`: the highest bit is set in the first such byte, and in all others; also, perhaps, in
/// bytes behind the first that differ from it in their lowest bit alone.
constexpr std::uint64_t equalTo(std::uint64_t word, char wanted) noexcept {
  const std::uint64_t zeroWhereEqual = word ^ (kEach * static_cast<unsigned char>(wanted));
  return (zeroWhereEqual - kEach) & ~zeroWhereEqual & kHighBits;
}

/// The place, 0 to 7, of the first byte in which the highest bit is set; of those that equalTo gave.
constexpr std::size_t firstOf(std::uint64_t marked) noexcept {
  return static_cast<std::size_t>(std::countr_zero(marked)) / 8;
}
static_assert(std::endian::native == std::endian::little, "the first byte is taken to be the lowest");

}  // namespace qvn::eight_bytes
