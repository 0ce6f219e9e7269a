// Which kind a pattern is, and its sections.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace qvn::pattern {

enum class PatternKind {
  Literal,  ///< no placeholder and no code
  Number,
  Date,
  Text,
};

/// Most sections that have a meaning; what follows them is never printed.
inline constexpr std::size_t kMostSections = 4;

// What the sections stand for: in number patterns ...
inline constexpr std::size_t kPositiveSection = 0;
inline constexpr std::size_t kNegativeSection = 1;
inline constexpr std::size_t kZeroSection = 2;
inline constexpr std::size_t kNullSection = 3;
// ... in text patterns, and in date patterns, whose other sections are not used.
inline constexpr std::size_t kTextSection = 0;
inline constexpr std::size_t kNoTextSection = 1;
inline constexpr std::size_t kDateSection = 0;

using Sections = std::array<std::string_view, kMostSections>;

struct Pattern {
  PatternKind kind = PatternKind::Literal;
  Sections sections;             ///< parts between unquoted semicolons; a missing one is empty
  std::size_t sectionCount = 1;  ///< 1 to kMostSections
};

/// Cuts a pattern into its sections and finds its kind. The first unquoted placeholder or code decides: a digit
/// placeholder (0 #) makes a number pattern, in which letters are literals; a date code makes a date pattern, in which
/// 0 and # are; a text placeholder (@ & < > !) makes a text pattern.
Pattern readPattern(std::string_view text) noexcept;

}  // namespace qvn::pattern
