// The table of a simple SELECT, for drivers that do not tell where columns come from.
#include <algorithm>
#include <array>
#include <span>

#include "qvn/base/letter_case.h"
#include "qvn/data/drivers/odbc/odbc_origin.h"

namespace qvn::data::odbc {
namespace {

bool isNameCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '$' ||
         c == '#' || static_cast<unsigned char>(c) >= 0x80;
}

// Takes one word, quoted name, quoted text or mark off the front.
std::string_view takeToken(std::string_view& sql) {
  while (!sql.empty() && (sql.front() == ' ' || sql.front() == '\t' || sql.front() == '\n' || sql.front() == '\r')) {
    sql.remove_prefix(1);
  }
  if (sql.empty()) return {};
  std::size_t size = 1;
  const char first = sql.front();
  if (first == '\'' || first == '"' || first == '`' || first == '[') {
    const std::size_t end = sql.find(first == '[' ? ']' : first, 1);
    size = end == std::string_view::npos ? sql.size() : end + 1;
  } else if (isNameCharacter(first)) {
    while (size < sql.size() && isNameCharacter(sql[size])) ++size;
  }
  const std::string_view token = sql.substr(0, size);
  sql.remove_prefix(size);
  return token;
}

bool isAny(std::string_view token, std::span<const std::string_view> words) {
  return std::ranges::any_of(words, [&](std::string_view word) { return equalIgnoringCase(token, word); });
}

// Words that mean that rows do not stand for rows of one table.
constexpr auto kCompound =
    std::to_array<std::string_view>({"JOIN", "UNION", "INTERSECT", "EXCEPT", "GROUP", "DISTINCT"});
// Words that may stand behind a table's name instead of an alias.
constexpr auto kBehindTable =
    std::to_array<std::string_view>({"WHERE", "ORDER", "LIMIT", "FOR", "HAVING", "OPTION", ""});

std::string unquoted(std::string_view token) {
  const bool isQuoted = token.size() >= 2 && std::string_view("\"`[").find(token.front()) != std::string_view::npos;
  return std::string(isQuoted ? token.substr(1, token.size() - 2) : token);
}

}  // namespace

std::string singleTable(std::string_view sql) {
  if (!equalIgnoringCase(takeToken(sql), "SELECT")) return {};
  std::string table;
  bool isAfterFrom = false;
  for (std::string_view token = takeToken(sql); !token.empty(); token = takeToken(sql)) {
    if (token == "(" || isAny(token, kCompound)) {
      if (!isAfterFrom || token != "(") return {};
      break;  // an expression of the condition
    }
    if (!isAfterFrom && equalIgnoringCase(token, "FROM")) {
      isAfterFrom = true;
      table = unquoted(takeToken(sql));
      const std::string_view behind = takeToken(sql);
      if (!isAny(behind, kBehindTable)) return {};
    }
  }
  return table;
}

}  // namespace qvn::data::odbc
