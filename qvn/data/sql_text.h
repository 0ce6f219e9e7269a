// Pieces of SQL text that several engines write alike.
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/variant.h"

namespace qvn::data {

/// `text` between two `quote` characters, each one inside doubled: O'Higgins becomes 'O''Higgins'.
std::string doubledQuotes(std::string_view text, char quote);

/// Bytes as X'0AFF'.
std::string hexLiteral(std::string_view bytes);

/// Numbers, Booleans (1 and 0) and NULL (also for Empty), with "." as the separator whatever the regional settings.
/// Throws RuntimeError 6 for infinities and NaN, 13 for values of other types.
std::string plainLiteral(const Variant& value);

}  // namespace qvn::data
