// Where a text occurs in another. Positions count characters from 1; 0 means nowhere.
//
//   At("b", "abc") == 2;  clAt("MYSQL", "Driver=MySQL;") == 8;  At("ab", "abc") == 0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "qvn/base/variant.h"

namespace qvn::text {

/// Position of the first single character of `strText` that equals the text of `strSearch`, with regard to case. Only a
/// text of one character can match: 0 for longer ones, "" and Null. Throws RuntimeError 13 for arrays and objects.
std::int32_t At(const Variant& strSearch, std::string_view strText);

/// Position of the first occurrence of the text of `strSearch`, without regard to case. The empty text is found at 1,
/// and nowhere in an empty `strText`. Throws RuntimeError 94 when `strSearch` is Null.
std::int32_t clAt(const Variant& strSearch, std::string_view strText);

/// The search of clAt for use within the library: the byte offset (from 0) of the occurrence, which is as many bytes
/// long as `searched`, or npos. It reads no further than the occurrence needs.
std::size_t findIgnoringCase(std::string_view searched, std::string_view text);

}  // namespace qvn::text
