// Code page 1252 (Western European): the single-byte codes of key strokes and of older files, both ways.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qvn::cp1252 {

/// The character of a code. The five codes that the page leaves unassigned (81, 8D, 8F, 90, 9D hexadecimal) give the
/// control character of the same number, so that all 256 codes go there and back.
char32_t toCharacter(std::uint8_t code) noexcept;

/// The code of a character, or nothing when the page has none for it.
std::optional<std::uint8_t> toCode(char32_t character) noexcept;

/// Bytes in the code page as UTF-8.
std::string decode(std::string_view codes);

/// UTF-8 as bytes in the code page; a character outside it, or a byte that is not UTF-8, becomes "?".
std::string encode(std::string_view text);

}  // namespace qvn::cp1252
