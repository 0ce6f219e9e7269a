// What can be told of a statement from its text alone.
#pragma once

#include <string_view>

namespace qvn::data::odbc {

/// The first word behind blanks and comments.
std::string_view firstWord(std::string_view sql);

/// The text up to its first ";" outside texts, quoted names and comments, and what follows that.
struct SplitStatement {
  std::string_view first;
  bool hasSecond = false;  ///< something else than blanks, comments and ";" follows
};
SplitStatement splitStatement(std::string_view sql);

}  // namespace qvn::data::odbc
