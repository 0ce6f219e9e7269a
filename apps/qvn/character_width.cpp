#include "apps/qvn/character_width.h"

#include <algorithm>
#include <array>

namespace qvn::cli {
namespace {

struct Range {
  char32_t first;
  char32_t last;
  int width;
};

// Blocks whose characters do not take one column. Source: EastAsianWidth.txt and the categories Mn, Me and Cf of the
// Unicode character database, whole blocks where nearly all of a block agrees.
constexpr auto kRanges = std::to_array<Range>({
    {0x0300, 0x036F, 0},    // combining accents
    {0x0483, 0x0489, 0},    // Cyrillic combining marks
    {0x0591, 0x05BD, 0},    // Hebrew points
    {0x0610, 0x061A, 0},    // Arabic marks
    {0x064B, 0x065F, 0},    // Arabic vowels
    {0x1100, 0x115F, 2},    // Hangul initial consonants
    {0x1AB0, 0x1AFF, 0},    // combining accents, extended
    {0x1DC0, 0x1DFF, 0},    // combining accents, supplement
    {0x200B, 0x200D, 0},    // zero-width space and joiners
    {0x20D0, 0x20FF, 0},    // combining marks for symbols
    {0x2E80, 0x303E, 2},    // CJK radicals and punctuation
    {0x3041, 0x33FF, 2},    // kana, bopomofo, CJK compatibility
    {0x3400, 0x4DBF, 2},    // CJK extension A
    {0x4E00, 0xA4CF, 2},    // CJK, Yi
    {0xA960, 0xA97F, 2},    // Hangul extended A
    {0xAC00, 0xD7A3, 2},    // Hangul syllables
    {0xF900, 0xFAFF, 2},    // CJK compatibility ideographs
    {0xFE00, 0xFE0F, 0},    // variation selectors
    {0xFE20, 0xFE2F, 0},    // combining half marks
    {0xFE30, 0xFE6F, 2},    // CJK compatibility forms
    {0xFEFF, 0xFEFF, 0},    // byte order mark
    {0xFF00, 0xFF60, 2},    // full-width forms
    {0xFFE0, 0xFFE6, 2},    // full-width signs
    {0x1F300, 0x1F64F, 2},  // pictographs, faces
    {0x1F680, 0x1F6FF, 2},  // vehicles
    {0x1F900, 0x1F9FF, 2},  // pictographs, supplement
    {0x20000, 0x3FFFD, 2},  // CJK extensions
});
static_assert(std::ranges::is_sorted(kRanges, std::ranges::less_equal{}, &Range::first));

}  // namespace

int characterWidth(char32_t character) noexcept {
  if (character < kRanges.front().first) return 1;
  const auto* range = std::ranges::lower_bound(kRanges, character, {}, &Range::last);
  return range != kRanges.end() && character >= range->first ? range->width : 1;
}

}  // namespace qvn::cli
