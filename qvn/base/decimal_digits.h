// Decimal numbers as strings of digits: the arithmetic under Decimal and under rounding for display.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qvn {

/// A non-negative decimal number: integer digits (none for zero) and decimals, as characters '0' to '9'.
struct DecimalDigits {
  std::string whole;
  std::string decimals;
};

/// The number 0.digits x 10^pointAt.
DecimalDigits placePoint(std::string_view digits, std::int64_t pointAt);

/// Rounds half away from zero to `count` decimals; afterwards there are exactly `count` of them.
void roundDecimals(DecimalDigits& number, std::size_t count);

/// Adds one in the last place of a run of digits; true when a carry leaves it (999 becomes 000).
bool incrementDigits(std::string& digits);

/// Removes leading zeros, down to an empty text for zero.
void dropLeadingZeros(std::string& digits);

}  // namespace qvn
