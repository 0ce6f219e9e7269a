// Literals that are too long for the engine's statements.
//
//   takeLongLiterals("INSERT INTO notas VALUES (1, '<a megabyte>')").sql() == "INSERT INTO notas VALUES (1, ?)"
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qvn::data::firebird {

struct LongLiteral {
  std::string bytes;
  bool isText;  ///< '...', else x'...'
};

struct StatementText {
  std::string_view original;
  std::string shortened;              ///< empty when no literal was taken out
  std::vector<LongLiteral> literals;  ///< in the order of their parameters

  [[nodiscard]] std::string_view sql() const { return literals.empty() ? original : shortened; }
};

/// Puts parameters in the place of literals of more than kLongestLiteral bytes. Comments, names in double quotes and
/// literals with another prefix than x stay as they are.
StatementText takeLongLiterals(std::string_view sql);

/// The engine takes as many characters; no text of as many bytes has more.
inline constexpr std::size_t kLongestLiteral = 16383;

}  // namespace qvn::data::firebird
