// One section of a number pattern: what its placeholders ask for.
//
//   "#,##0.0#" has 4 integer places, 1 of them required, 2 decimals, 1 of them required, and groups thousands
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace qvn::pattern {

/// An exponent part such as "E+00".
struct ExponentPart {
  std::size_t offset = 0;  ///< of its letter in the section
  std::size_t length = 0;  ///< bytes, with the letter, the sign and the placeholders
  std::size_t leastDigits = 0;
  bool showsPlus = false;  ///< "E+", not "E-"
};

struct NumberSection {
  std::string_view text;
  std::size_t wholePlaces = 0;       ///< placeholders before the point
  std::size_t requiredWhole = 0;     ///< of them, those from the first "0" on: they show leading zeros
  std::size_t decimalPlaces = 0;     ///< placeholders behind the point
  std::size_t requiredDecimals = 0;  ///< of them, those up to the last "0": they show trailing zeros
  std::int64_t shift = 0;            ///< power of ten that the value is multiplied by: 2 a "%", -3 a scaling comma
  bool groupsThousands = false;
  std::optional<ExponentPart> exponent;

  /// Without digit placeholders a section prints its text alone.
  [[nodiscard]] bool hasPlaces() const noexcept { return wholePlaces + decimalPlaces > 0; }
};

/// Takes a section apart. A comma between integer placeholders groups thousands; a comma directly before the point,
/// before the exponent or behind the last placeholder divides by 1000; other commas mean nothing. "E" with a sign and a
/// placeholder, behind a placeholder, begins the exponent; placeholders behind it are literals.
NumberSection readNumberSection(std::string_view text) noexcept;

}  // namespace qvn::pattern
