// Capitals and small letters, one character to one character: Latin (ñ, á, ü, ...), Greek and Cyrillic letters.
//
// A letter whose capital is of another script (µ) or an ASCII letter (ı, ſ), is not one character (ß) or belongs to
// another letter (the final ς) stays as it is, so that positions in the upper-cased text are positions in the text.
// The same letters are lower-cased.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qvn {

/// The capital of `character`, or `character` itself.
char32_t upperCase(char32_t character) noexcept;

/// The upper-cased text; bytes that are not UTF-8 are kept as they are.
std::string upperCase(std::string_view text);

/// The small letter of `character`, or `character` itself; the inverse of upperCase.
char32_t lowerCase(char32_t character) noexcept;

/// The lower-cased text; bytes that are not UTF-8 are kept as they are.
std::string lowerCase(std::string_view text);

/// As upperCase(text), into `upper`, whose memory is used again.
void upperCaseInto(std::string_view text, std::string& upper);

/// True when both texts are equal after upper-casing.
bool equalIgnoringCase(std::string_view left, std::string_view right) noexcept;

/// A hash that is the same for texts which equalIgnoringCase finds equal.
std::size_t hashIgnoringCase(std::string_view text);

}  // namespace qvn
