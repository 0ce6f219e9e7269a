// What stands between the parts of a record line.
#pragma once

#include <string_view>

namespace qvn::rowtext::internal {

/// Begins the line and ends each field: U+00A8. Its first byte begins no other place of a well-formed character, so a
/// search by bytes finds the characters.
inline constexpr std::string_view kTerminator = "\u00A8";
inline constexpr std::string_view kMarker = "[&&,]";  // between name and value
inline constexpr std::string_view kNull = "Null";
inline constexpr char kQuote = '"';
inline constexpr char kDateMark = '#';

}  // namespace qvn::rowtext::internal
