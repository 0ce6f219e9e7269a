#include <charconv>
#include <cmath>
#include <limits>

#include "qvn/base/date_text.h"
#include "qvn/base/letter_case.h"
#include "qvn/base/number_text.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/base/variant.h"

namespace qvn {
namespace {

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

[[noreturn]] void fail(std::int32_t number) { throw RuntimeError(number); }

double textToDouble(const std::string& text) {
  if (const auto number = parseNumber(text)) return *number;
  fail(error_number::kTypeMismatch);
}

// Rounds half to even and narrows.
template <typename Whole>
Whole roundTo(double value) {
  const double rounded = std::nearbyint(value);
  constexpr auto kLowest = static_cast<double>(std::numeric_limits<Whole>::min());
  // One past the largest: a power of two, exact as a Double for every width.
  const double limit = std::ldexp(1.0, std::numeric_limits<Whole>::digits);
  if (!(rounded >= kLowest && rounded < limit)) fail(error_number::kOverflow);
  return static_cast<Whole>(rounded);
}

template <typename Whole>
Whole narrow(std::int64_t value) {
  if (value < std::numeric_limits<Whole>::min() || value > std::numeric_limits<Whole>::max()) {
    fail(error_number::kOverflow);
  }
  return static_cast<Whole>(value);
}

// The value of a 64-bit number, a Currency, a Decimal or a number's text, all of which a Double may round. Nothing for
// other types, and for text with an exponent, with too many digits or that is no number.
std::optional<Decimal> exactValue(const Variant& value) {
  if (const auto* exact = value.getIf<Decimal>()) return *exact;
  if (const auto* currency = value.getIf<Currency>()) return Decimal::fromText(currency->toText());
  if (const auto* whole = value.getIf<std::int64_t>()) return Decimal::fromInteger(*whole);
  const auto* text = value.getIf<std::string>();
  const auto plain = text != nullptr ? plainNumber(*text, numberSeparators()) : std::nullopt;
  return plain ? Decimal::fromText(*plain) : std::nullopt;
}

// `exact` in units of 10^-`decimals`.
std::int64_t scaled(const Decimal& exact, std::size_t decimals) {
  if (const auto units = exact.toScaled(decimals)) return *units;
  fail(error_number::kOverflow);
}

template <typename Whole>
Whole toWhole(const Variant& value) {
  if (const auto* same = value.getIf<Whole>()) return *same;
  if (const auto* wide = value.getIf<std::int64_t>()) return narrow<Whole>(*wide);
  if (const auto exact = exactValue(value)) return narrow<Whole>(scaled(*exact, 0));
  return roundTo<Whole>(value.toDouble());
}

std::string withRegionalPoint(std::string text) {
  if (const std::size_t point = text.find('.'); point != std::string::npos) text.replace(point, 1, decimalSeparator());
  return text;
}

}  // namespace

double Variant::toDouble() const {
  // By far the most frequent; the others go through the table.
  if (const auto* number = getIf<double>()) return *number;
  return std::visit(Overloaded{
                        [](Empty) { return 0.0; },
                        [](Null) -> double { fail(error_number::kInvalidUseOfNull); },
                        [](bool value) { return value ? -1.0 : 0.0; },
                        [](float value) { return static_cast<double>(value); },
                        [](double value) { return value; },
                        [](std::integral auto value) { return static_cast<double>(value); },
                        [](Currency value) { return value.toDouble(); },
                        [](const Decimal& value) { return value.toDouble(); },
                        [](Date value) { return value.serial(); },
                        [](const std::string& text) { return textToDouble(text); },
                        [](const Array&) -> double { fail(error_number::kTypeMismatch); },
                        [](const ObjectPtr&) -> double { fail(error_number::kTypeMismatch); },
                    },
                    value_);
}

float Variant::toSingle() const {
  const double value = toDouble();
  if (std::abs(value) > std::numeric_limits<float>::max() && std::isfinite(value)) fail(error_number::kOverflow);
  return static_cast<float>(value);
}

std::uint8_t Variant::toByte() const { return toWhole<std::uint8_t>(*this); }
std::int16_t Variant::toInteger() const { return toWhole<std::int16_t>(*this); }
std::int32_t Variant::toLong() const { return toWhole<std::int32_t>(*this); }
std::int64_t Variant::toLongLong() const { return toWhole<std::int64_t>(*this); }

bool Variant::toBoolean() const {
  if (const auto* text = getIf<std::string>()) {
    const std::string_view word = utf8::trimBlanks(*text);
    if (equalIgnoringCase(word, "True")) return true;
    if (equalIgnoringCase(word, "False")) return false;
  }
  return toDouble() != 0;
}

Currency Variant::toCurrency() const {
  if (const auto* currency = getIf<Currency>()) return *currency;
  if (const auto exact = exactValue(*this)) return Currency::fromScaled(scaled(*exact, Currency::kDecimals));
  return Currency::fromDouble(toDouble());
}

Decimal Variant::toDecimal() const {
  if (auto exact = exactValue(*this)) return *std::move(exact);
  return Decimal::fromDouble(toDouble());
}

Date Variant::toDate() const {
  if (const auto* date = getIf<Date>()) return *date;
  if (const auto* text = getIf<std::string>()) {
    if (const auto date = parseDate(*text)) return *date;
  }
  const double serial = toDouble();
  if (!(serial > Date::kFirstDay - 1 && serial < Date::kLastDay + 1)) fail(error_number::kOverflow);
  return Date(serial);
}

std::string Variant::toText() const {
  return std::visit(Overloaded{
                        [](Empty) { return std::string(); },
                        [](Null) -> std::string { fail(error_number::kInvalidUseOfNull); },
                        [](bool value) { return std::string(value ? "True" : "False"); },
                        [](float value) { return withRegionalPoint(shortestNumber(value)); },
                        [](double value) { return withRegionalPoint(shortestNumber(value)); },
                        [](std::integral auto value) { return std::to_string(value); },
                        [](Currency value) { return withRegionalPoint(value.toText()); },
                        [](const Decimal& value) { return withRegionalPoint(value.toTrimmedText()); },
                        [](Date value) { return dateText(value); },
                        [](const std::string& text) { return text; },
                        [](const Array&) -> std::string { fail(error_number::kTypeMismatch); },
                        [](const ObjectPtr&) -> std::string { fail(error_number::kTypeMismatch); },
                    },
                    value_);
}

}  // namespace qvn
