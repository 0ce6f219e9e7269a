#include "qvn/base/readable_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace qvn {
namespace {

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

}  // namespace

std::string escapedForm(const utf8::Decoded& character, unsigned char firstByte) {
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

std::string readableText(std::string_view text) {
  std::string readable;
  readable.reserve(text.size());
  for (std::size_t offset = 0; offset < text.size();) {
    const utf8::Decoded character = utf8::decode(text, offset);
    const bool isLineEnd = character.codePoint == '\r' && text.substr(offset + 1).starts_with('\n');
    if (character.codePoint == '\n' || character.codePoint == '\t') {
      readable.push_back(text[offset]);
    } else if (!isLineEnd) {
      const std::string escaped = escapedForm(character, static_cast<unsigned char>(text[offset]));
      readable.append(escaped.empty() ? text.substr(offset, character.length) : escaped);
    }
    offset += character.length;
  }
  return readable;
}

}  // namespace qvn
