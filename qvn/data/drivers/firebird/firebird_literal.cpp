#include "qvn/data/drivers/firebird/firebird_literal.h"

#include <array>
#include <charconv>
#include <cmath>

#include "qvn/data/iso_date.h"
#include "qvn/data/sql_text.h"

namespace qvn::data::firebird {
namespace {

constexpr int kFractionDigits = 4;

std::string dateLiteral(Date date, FieldType type) {
  if (type == FieldType::DbDate) type = FieldType::Date;
  std::string quoted = "'" + isoText(date, type, kFractionDigits) + "'";
  // The engine compares a bare text as a text.
  switch (type) {
    case FieldType::Date:
      return "DATE " + quoted;
    case FieldType::DbTime:
      return "TIME " + quoted;
    case FieldType::DbTimeStamp:
      return "TIMESTAMP " + quoted;
    default:
      return quoted;
  }
}

std::string textLiteral(const std::string& text, FieldType type) {
  // The engine takes bytes for any character set; a statement cannot hold a NUL.
  if (isBinary(type) || text.find('\0') != std::string::npos) return hexLiteral(text);
  return doubledQuotes(text, '\'');
}

// With an exponent the engine reads a Double, without one an exact number of at most 18 digits.
std::string doubleLiteral(double number) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.begin(), text.end(), number, std::chars_format::scientific).ptr;
  return {text.begin(), end};
}

}  // namespace

std::string literal(const Variant& value, FieldType type) {
  if (const auto* date = value.getIf<Date>()) return dateLiteral(*date, type);
  if (const auto* text = value.getIf<std::string>()) return textLiteral(*text, type);
  if (type == FieldType::Boolean && value.isNumeric()) return value.toBoolean() ? "TRUE" : "FALSE";
  if (const auto* number = value.getIf<double>(); number != nullptr && type == FieldType::Double) {
    if (std::isfinite(*number)) return doubleLiteral(*number);
  }
  return plainLiteral(value);
}

}  // namespace qvn::data::firebird
