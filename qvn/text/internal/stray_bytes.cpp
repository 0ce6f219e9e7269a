#include "qvn/text/internal/stray_bytes.h"

#include <cstddef>
#include <cstdint>

#include "qvn/base/utf8.h"

namespace qvn::text::internal {
namespace {

constexpr char kMark = '\xFF';  // never part of UTF-8
constexpr std::size_t kSpelledSize = 3;

char continuation(unsigned bits) { return static_cast<char>(static_cast<std::uint8_t>(0x80U | bits)); }

unsigned nibble(char byte) { return static_cast<std::uint8_t>(byte) & 0x0FU; }

}  // namespace

std::string spellStrayBytes(std::string_view text) {
  std::string spelled;
  spelled.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const utf8::Decoded character = utf8::decode(text, i);
    if (character.valid) {
      spelled.append(text, i, character.length);
    } else {
      const auto byte = static_cast<std::uint8_t>(text[i]);
      spelled.append({kMark, continuation(byte >> 4U), continuation(byte & 0x0FU)});
    }
    i += character.length;
  }
  return spelled;
}

std::string restoreStrayBytes(std::string_view spelled) {
  std::string text;
  text.reserve(spelled.size());
  for (std::size_t i = 0; i < spelled.size();) {
    if (spelled[i] == kMark) {
      text.push_back(
          static_cast<char>(static_cast<std::uint8_t>(nibble(spelled[i + 1]) << 4U | nibble(spelled[i + 2]))));
      i += kSpelledSize;
    } else {
      text.push_back(spelled[i++]);
    }
  }
  return text;
}

}  // namespace qvn::text::internal
