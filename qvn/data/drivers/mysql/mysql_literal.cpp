#include "qvn/data/drivers/mysql/mysql_literal.h"

#include "qvn/data/iso_date.h"
#include "qvn/data/sql_text.h"

namespace qvn::data::mysql {
namespace {

constexpr int kFractionDigits = 6;

std::string textLiteral(MYSQL* handle, std::string_view text) {
  std::string quoted(2 * text.size() + 3, '\'');  // every byte escaped, two quotes, the library's closing NUL
  const unsigned long length = mysql_real_escape_string(handle, quoted.data() + 1, text.data(), text.size());
  quoted.resize(length + 1);
  quoted.push_back('\'');
  return quoted;
}

}  // namespace

std::string literal(MYSQL* handle, const Variant& value, FieldType type) {
  if (const auto* date = value.getIf<Date>()) return "'" + isoText(*date, type, kFractionDigits) + "'";
  if (const auto* text = value.getIf<std::string>()) {
    return isBinary(type) ? hexLiteral(*text) : textLiteral(handle, *text);
  }
  return plainLiteral(value);
}

}  // namespace qvn::data::mysql
