#include "qvn/data/drivers/odbc/statement_text.h"

#include <algorithm>

namespace qvn::data::odbc {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\f\v";

// Length of the comment at the front, 0 when there is none.
std::size_t commentLength(std::string_view sql) {
  std::string_view end;
  if (sql.starts_with("--")) {
    end = "\n";
  } else if (sql.starts_with("/*")) {
    end = "*/";
  } else {
    return 0;
  }
  const std::size_t at = sql.find(end, 2);
  return at == std::string_view::npos ? sql.size() : at + end.size();
}

// Length of the quoted text or name at the front, 0 when there is none. A doubled quote reads as two quoted pieces.
std::size_t quotedLength(std::string_view sql) {
  const char quote = sql.front();
  if (quote != '\'' && quote != '"' && quote != '`') return 0;
  const std::size_t end = sql.find(quote, 1);
  return end == std::string_view::npos ? sql.size() : end + 1;
}

std::string_view withoutLead(std::string_view sql) {
  while (true) {
    sql.remove_prefix(std::min(sql.find_first_not_of(kBlanks), sql.size()));
    const std::size_t comment = commentLength(sql);
    if (comment == 0) return sql;
    sql.remove_prefix(comment);
  }
}

}  // namespace

std::string_view firstWord(std::string_view sql) {
  sql = withoutLead(sql);
  const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  return sql.substr(0, static_cast<std::size_t>(std::ranges::find_if_not(sql, isLetter) - sql.begin()));
}

SplitStatement splitStatement(std::string_view sql) {
  std::string_view rest = sql;
  while (!rest.empty() && rest.front() != ';') {
    std::size_t length = quotedLength(rest);
    if (length == 0) length = commentLength(rest);
    rest.remove_prefix(std::max<std::size_t>(length, 1));
  }
  const std::string_view first = sql.substr(0, sql.size() - rest.size());
  while (rest.starts_with(';')) rest = withoutLead(rest.substr(1));
  return {first, !rest.empty()};
}

}  // namespace qvn::data::odbc
