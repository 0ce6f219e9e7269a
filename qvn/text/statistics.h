// A random number in a range, and how far numbers scatter.
#pragma once

#include <cstdint>

#include "qvn/base/random.h"
#include "qvn/base/variant.h"

namespace qvn::text {

/// r x (`upperbound` - `lowerbound` + 1) + `lowerbound`, r being the next number in [0, 1) of `random`: a Double in
/// [`lowerbound`, `upperbound` + 1), not truncated. The order of the bounds is not checked.
Variant numeroAleatorio(std::int32_t upperbound, std::int32_t lowerbound, RandomSource& random);

/// Standard deviation of the elements 1 to n - 1 of the array `a`, n being its upper bound: neither index 0 nor the
/// last element counts, and the sum of squares is divided by n - 2. 0 when n is 2 or less.
///
/// Texts that are numbers, Empty and Booleans are read as numbers. Never fails: 0 when `a` is no array, an index from 1
/// on is missing, an element is no number, or a Double cannot hold the sums.
double StdDev(const Variant& a);

}  // namespace qvn::text
