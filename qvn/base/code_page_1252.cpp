#include "qvn/base/code_page_1252.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "qvn/base/utf8.h"

namespace qvn::cp1252 {
namespace {

constexpr std::uint8_t kFirstSpecial = 0x80;

// Codes 80 to 9F; all other codes equal their character. Source: the Unicode Consortium's table CP1252.TXT, with the
// unassigned codes mapped to the control characters of the same number as the system's best fit does.
constexpr auto kSpecial = std::to_array<char32_t>({
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
});
static_assert(kSpecial.size() == 32);

}  // namespace

char32_t toCharacter(std::uint8_t code) noexcept {
  const std::size_t index = static_cast<std::size_t>(code) - kFirstSpecial;
  return code >= kFirstSpecial && index < kSpecial.size() ? kSpecial[index] : char32_t{code};
}

std::optional<std::uint8_t> toCode(char32_t character) noexcept {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<std::uint8_t>(character);
  const auto* found = std::ranges::find(kSpecial, character);
  if (found == kSpecial.end()) return std::nullopt;
  return static_cast<std::uint8_t>(kFirstSpecial + (found - kSpecial.begin()));
}

std::string decode(std::string_view codes) {
  std::string text;
  text.reserve(codes.size());
  for (const char code : codes) utf8::append(text, toCharacter(static_cast<std::uint8_t>(code)));
  return text;
}

std::string encode(std::string_view text) {
  std::string codes;
  codes.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const utf8::Decoded character = utf8::decode(text, i);
    const auto code = character.valid ? toCode(character.codePoint) : std::nullopt;
    codes.push_back(static_cast<char>(code.value_or('?')));
    i += character.length;
  }
  return codes;
}

}  // namespace qvn::cp1252
