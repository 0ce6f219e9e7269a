#include "apps/qvn/field_text.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "apps/qvn/terminal_text.h"
#include "qvn/base/number_text.h"
#include "qvn/base/regional.h"
#include "qvn/data/iso_date.h"
#include "qvn/text/pattern.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kAmountPattern = "#,##0.00";

// The first `most` bytes.
std::string hexDigits(std::string_view bytes, std::size_t most) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "0x";
  for (const char c : bytes.substr(0, most)) {
    const auto byte = static_cast<unsigned char>(c);
    text.push_back(kDigits[byte >> 4U]);
    text.push_back(kDigits[byte & 0xFU]);
  }
  return text;
}

// With "." and at least `scale` decimals: an engine that stores 1160 in a column of two decimals shows 1160.00.
std::string decimalText(const Decimal& number, int scale) {
  std::string text = number.toText();
  const std::size_t point = text.find('.');
  const std::size_t decimals = point == std::string::npos ? 0 : text.size() - point - 1;
  if (const auto wanted = static_cast<std::size_t>(std::max(scale, 0)); decimals < wanted) {
    if (decimals == 0) text.push_back('.');
    text.append(wanted - decimals, '0');
  }
  return text;
}

std::string withRegionalSeparator(std::string text) {
  if (const std::size_t point = text.find('.'); point != std::string::npos) text.replace(point, 1, decimalSeparator());
  return text;
}

std::string portableDate(Date date) {
  if (!date.hasTime()) return data::isoDate(date);
  if (date.dayNumber() == 0) return data::isoTime(date);
  std::string text = data::isoDateTime(date);
  std::ranges::replace(text, ' ', 'T');
  return text;
}

// The kinds of a Variant that have a text of their own in every output.
bool isFraction(const Variant& value) { return value.getIf<double>() != nullptr || value.getIf<float>() != nullptr; }

std::string fractionText(const Variant& value) {
  const auto* single = value.getIf<float>();
  return single != nullptr ? shortestNumber(*single) : shortestNumber(value.toDouble());
}

PortableValue portableNumber(const Variant& value, int scale) {
  using Kind = PortableValue::Kind;
  if (const auto* number = value.getIf<Decimal>()) return {Kind::Number, decimalText(*number, scale)};
  if (const auto* amount = value.getIf<Currency>()) return {Kind::Number, amount->toText()};
  if (isFraction(value)) {
    // Infinities have no number in JSON.
    return {std::isfinite(value.toDouble()) ? Kind::Number : Kind::Text, fractionText(value)};
  }
  return {Kind::Number, value.toText()};
}

}  // namespace

Cell fieldCell(const data::Field& field, std::size_t widest) {
  const Variant& value = field.Value();
  if (value.isNull()) return nullCell();
  if (const auto* text = value.getIf<std::string>()) {
    if (!isBinary(field.Type())) return textCell(safeText(*text, widest));
    return textCell(safeText(hexDigits(*text, widest), widest));
  }
  if (const auto* flag = value.getIf<bool>()) return textCell(*flag ? "Sí" : "No");
  if (const auto* number = value.getIf<Decimal>()) {
    return numberCell(withRegionalSeparator(decimalText(*number, field.NumericScale())));
  }
  return {safeText(value.toText()), value.getIf<Date>() == nullptr ? Cell::Kind::Number : Cell::Kind::Text};
}

Cell amountCell(const Variant& amount) {
  if (amount.isNull()) return nullCell();
  return numberCell(safeText(text::Formato(amount, kAmountPattern).toText()));
}

PortableValue portableValue(const data::Field& field) {
  using Kind = PortableValue::Kind;
  const Variant& value = field.Value();
  if (value.isNull() || value.isEmpty()) return {};
  if (const auto* text = value.getIf<std::string>()) {
    return {Kind::Text, isBinary(field.Type()) ? hexDigits(*text, text->size()) : *text};
  }
  if (const auto* flag = value.getIf<bool>()) return {Kind::Boolean, *flag ? "true" : "false"};
  if (const auto* date = value.getIf<Date>()) return {Kind::Text, portableDate(*date)};
  return portableNumber(value, field.NumericScale());
}

}  // namespace qvn::cli
