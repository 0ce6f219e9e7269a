// Numbers by number patterns of up to four sections, and as amounts of money.
#pragma once

#include <string>

#include "qvn/base/pattern/sections.h"
#include "qvn/base/pattern/significant_digits.h"

namespace qvn::pattern {

/// `number` by the section for its sign: positive; negative; zero. An empty or missing section gives way to the first
/// one, which then shows a negative number's sign. A number that rounds to zero in its section is laid out as zero.
std::string layoutNumber(const SignificantDigits& number, const Sections& sections);

/// `number` with the locale's currency symbol, decimals and thousands separators; a negative amount in parentheses.
std::string layoutCurrency(const SignificantDigits& number);

}  // namespace qvn::pattern
