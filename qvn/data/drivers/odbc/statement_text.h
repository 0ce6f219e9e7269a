// What can be told of a statement from its text alone.
#pragma once

#include <string_view>

namespace qvn::data::odbc {

/// The first word behind blanks and comments.
std::string_view firstWord(std::string_view sql);

/// True when something else than blanks and comments follows a ";" that stands outside texts, quoted names and
/// comments.
bool hasSecondStatement(std::string_view sql);

}  // namespace qvn::data::odbc
