// UTF-8 text by characters. A character is one Unicode code point; a byte that does not belong to a well-formed
// sequence counts as one character of its own, so that no function here loses or invents bytes.
//
//   utf8::length("ñandú") == 5;  utf8::left("ñandú", 2) == "ña"
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qvn::utf8 {

/// Stands for a byte that is not UTF-8.
inline constexpr char32_t kReplacement = 0xFFFD;

struct Decoded {
  char32_t codePoint;  ///< kReplacement when the bytes are not well formed
  std::size_t length;  ///< bytes taken, at least 1
  bool valid;
};

/// The character that starts at `text[offset]`; `offset` must be inside the text.
Decoded decode(std::string_view text, std::size_t offset) noexcept;

/// Appends `codePoint`; a value that is no character appends kReplacement.
void append(std::string& text, char32_t codePoint);

/// True when every byte is 7-bit; then characters and bytes are the same thing.
bool isAscii(std::string_view text) noexcept;
bool isValid(std::string_view text) noexcept;

/// `text` with every byte that is not UTF-8 replaced by kReplacement.
std::string sanitize(std::string_view text);

/// Number of characters. Linear; eight bytes a step while the text is ASCII.
std::size_t length(std::string_view text) noexcept;

/// Byte offset of the character at `index` (from 0), or the text's size when there are fewer.
std::size_t offsetOf(std::string_view text, std::size_t index) noexcept;

/// The first `count` characters.
std::string_view left(std::string_view text, std::size_t count) noexcept;
/// The characters from `start` (from 0) on.
std::string_view from(std::string_view text, std::size_t start) noexcept;
/// `count` characters from `start` (from 0), fewer when the text ends.
std::string_view middle(std::string_view text, std::size_t start, std::size_t count) noexcept;

/// Leading and trailing blanks removed. The blank is the blank character (U+0020) alone.
std::string_view trimBlanks(std::string_view text) noexcept;

}  // namespace qvn::utf8
