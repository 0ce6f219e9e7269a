#include "qvn/data/drivers/sqlite/sqlite_literal.h"

#include <cmath>

#include "qvn/base/number_text.h"
#include "qvn/data/iso_date.h"
#include "qvn/data/sql_text.h"

namespace qvn::data::sqlite {
namespace {

constexpr int kFractionDigits = 6;

// The engine reads a literal only up to a NUL character.
std::string textLiteral(const std::string& text) {
  if (text.find('\0') == std::string::npos) return doubledQuotes(text, '\'');
  return "CAST(" + hexLiteral(text) + " AS TEXT)";
}

}  // namespace

std::string quoteName(std::string_view name) { return doubledQuotes(name, '"'); }

std::string literal(const Variant& value, FieldType type) {
  if (const auto* date = value.getIf<Date>()) {
    // The engine stores any text in any column; a time in one declared as a date is kept.
    if (type == FieldType::Date && date->hasTime()) type = FieldType::DbTimeStamp;
    return "'" + isoText(*date, type, kFractionDigits) + "'";
  }
  if (const auto* text = value.getIf<std::string>()) return isBinary(type) ? hexLiteral(*text) : textLiteral(*text);
  if (const auto* number = value.getIf<double>(); number != nullptr && std::isinf(*number)) {
    return *number < 0 ? "-9e999" : "9e999";
  }
  return plainLiteral(value);
}

}  // namespace qvn::data::sqlite
