#include "qvn/data/sql_text.h"

#include <cmath>
#include <cstdint>

#include "qvn/base/number_text.h"
#include "qvn/base/runtime_error.h"

namespace qvn::data {
namespace {

std::string finiteLiteral(double number, std::string text) {
  if (!std::isfinite(number)) throw RuntimeError(error_number::kOverflow);
  return text;
}

}  // namespace

std::string doubledQuotes(std::string_view text, char quote) {
  std::string quoted;
  quoted.reserve(text.size() + 2);
  quoted.push_back(quote);
  for (const char c : text) {
    if (c == quote) quoted.push_back(quote);
    quoted.push_back(c);
  }
  quoted.push_back(quote);
  return quoted;
}

std::string hexLiteral(std::string_view bytes) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string literal = "X'";
  literal.reserve(bytes.size() * 2 + 3);
  for (const char c : bytes) {
    const auto byte = static_cast<std::uint8_t>(c);
    literal.push_back(kDigits[byte >> 4U]);
    literal.push_back(kDigits[byte & 0x0FU]);
  }
  literal.push_back('\'');
  return literal;
}

std::string plainLiteral(const Variant& value) {
  switch (value.type()) {
    case VariantType::Empty:
    case VariantType::Null:
      return "NULL";
    case VariantType::Boolean:
      return value.toBoolean() ? "1" : "0";
    case VariantType::Single:
      return finiteLiteral(value.toDouble(), shortestNumber(value.toSingle()));
    case VariantType::Double:
      return finiteLiteral(value.toDouble(), shortestNumber(value.toDouble()));
    case VariantType::Currency:
      return value.getIf<Currency>()->toText();
    case VariantType::Decimal:
      return value.getIf<Decimal>()->toText();
    case VariantType::Byte:
    case VariantType::Integer:
    case VariantType::Long:
    case VariantType::LongLong:
      return std::to_string(value.toLongLong());
    case VariantType::Date:
    case VariantType::String:
    case VariantType::Object:
    case VariantType::Array:
      break;
  }
  throw RuntimeError(error_number::kTypeMismatch);
}

}  // namespace qvn::data
