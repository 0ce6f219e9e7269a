#include "apps/qvn/terminal_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "apps/qvn/character_width.h"
#include "qvn/base/utf8.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kEllipsis = "…";

// C0, DEL and C1.
bool isControl(char32_t character) { return character < 0x20 || (character >= 0x7F && character < 0xA0); }

// Directional marks, embeddings, overrides and isolates, and the two separators that terminals may take for line ends.
bool changesLayout(char32_t character) {
  return character == 0x061C || character == 0x200E || character == 0x200F ||
         (character >= 0x2028 && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

std::string hex(std::uint32_t number, std::size_t digits) {
  std::array<char, 8> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number, 16).ptr;
  std::string padded(text.data(), end);
  padded.insert(0, digits - std::min(digits, padded.size()), '0');
  std::ranges::transform(padded, padded.begin(),
                         [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
  return padded;
}

// What is shown for a character that is not shown as it is; "" for one that is.
std::string escaped(const utf8::Decoded& character, unsigned char firstByte) {
  if (!character.valid) return "\\x" + hex(firstByte, 2);
  switch (character.codePoint) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      break;
  }
  if (isControl(character.codePoint)) return "\\x" + hex(character.codePoint, 2);
  if (changesLayout(character.codePoint)) return "\\u" + hex(character.codePoint, 4);
  return {};
}

}  // namespace

std::string safeText(std::string_view text, std::size_t widest) {
  std::string safe;
  safe.reserve(std::min(text.size(), widest));
  std::size_t width = 0;
  std::size_t cut = 0;  // bytes of `safe` that leave a column free for the ellipsis
  for (std::size_t offset = 0; offset < text.size();) {
    const utf8::Decoded character = utf8::decode(text, offset);
    const std::string shown = escaped(character, static_cast<unsigned char>(text[offset]));
    if (shown.empty()) {
      safe.append(text.substr(offset, character.length));
      width += static_cast<std::size_t>(characterWidth(character.codePoint));
    } else {
      safe.append(shown);
      width += shown.size();
    }
    if (width > widest) return safe.substr(0, cut).append(kEllipsis);
    if (width < widest) cut = safe.size();
    offset += character.length;
  }
  return safe;
}

std::size_t displayWidth(std::string_view safe) noexcept {
  if (utf8::isAscii(safe)) return safe.size();
  std::size_t width = 0;
  for (std::size_t offset = 0; offset < safe.size();) {
    const utf8::Decoded character = utf8::decode(safe, offset);
    width += static_cast<std::size_t>(characterWidth(character.codePoint));
    offset += character.length;
  }
  return width;
}

}  // namespace qvn::cli
