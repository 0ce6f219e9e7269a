// Arrays of loosely typed values put in order in place.
//
//   Variant codes = Array{{"b", 10, "a", 2}};
//   ShellSortAny(codes);  // 2, 10, "a", "b"
#pragma once

#include <cstdint>

#include "qvn/base/variant.h"

namespace qvn::text {

enum class SortDirection : std::uint8_t { SortAscending = 0, SortDescending = 1 };

/// Sorts the one-dimensional array `vArray` by Shell's method with Knuth's gaps (1, 4, 13, 40 ...), the largest below
/// the first one that exceeds the number of elements. It is not stable: where equal elements end up follows from the
/// gaps and is part of what hosts see.
///
/// Numbers go by value, texts in binary order, any number before any text, as compare() says; a Null is neither greater
/// nor smaller than anything. Throws RuntimeError 13 when `vArray` is no array, or an element that is compared is an
/// array or object; the array is then as it was.
void ShellSortAny(Variant& vArray, SortDirection SortOrder = SortDirection::SortAscending);

}  // namespace qvn::text
