// Where a text occurs in another, as byte offsets, in time linear in both. Occurrences are of whole characters.
#pragma once

#include <cstddef>
#include <string_view>

namespace qvn::text::internal {

/// Offset of the first occurrence of the bytes `searched` at or after `from`, or npos. `searched` must not be empty; to
/// find whole characters it must be UTF-8, or both texts spelled by spellStrayBytes.
std::size_t findBytes(std::string_view text, std::string_view searched, std::size_t from = 0);

/// Offset of the first occurrence, compared character by character, or npos. `searched` must not be empty.
std::size_t findExact(std::string_view text, std::string_view searched);

/// As findExact, compared after upper-casing both. The occurrence is as many bytes long as `searched`.
std::size_t findUpperCased(std::string_view text, std::string_view searched);

}  // namespace qvn::text::internal
