#include "qvn/data/drivers/persist/saved_value.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

#include "qvn/base/number_text.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/data/field_kind.h"
#include "qvn/data/iso_date.h"

namespace qvn::data::persist {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";
constexpr int kFractionDigits = 6;

template <typename Number>
std::optional<Number> parseWhole(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// What does not fit its type is refused; the Variant may hold it in a wider one.
template <typename Number, typename Held = Number>
bool readWhole(std::string_view text, Variant& value) {
  const auto number = parseWhole<Number>(text);
  if (number) value = Variant(static_cast<Held>(*number));
  return number.has_value();
}

template <typename Number>
bool readReal(std::string_view text, Variant& value) {
  const auto number = parseWhole<Number>(text);
  if (!number || !std::isfinite(*number)) return false;
  value = Variant(*number);
  return true;
}

bool readDecimal(std::string_view text, Variant& value) {
  auto decimal = Decimal::fromText(text);
  if (!decimal) return false;
  value = Variant(*std::move(decimal));
  return true;
}

bool readCurrency(std::string_view text, Variant& value) {
  const auto decimal = Decimal::fromText(text);
  const auto scaled = decimal ? decimal->toScaled(Currency::kDecimals) : std::nullopt;
  if (scaled) value = Variant(Currency::fromScaled(*scaled));
  return scaled.has_value();
}

bool readBoolean(std::string_view text, Variant& value) {
  const bool isTrue = text == "True" || text == "true" || text == "1" || text == "-1";
  if (!isTrue && text != "False" && text != "false" && text != "0") return false;
  value = isTrue;
  return true;
}

bool readDate(std::string_view text, Variant& value) {
  const auto date = parseIsoDate(text);
  if (date) value = *date;
  return date.has_value();
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

bool readBytes(std::string_view text, Variant& value) {
  if (text.size() % 2 != 0) return false;
  std::string bytes;
  bytes.reserve(text.size() / 2);
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const int high = hexDigit(text[i]);
    const int low = hexDigit(text[i + 1]);
    if (high < 0 || low < 0) return false;
    bytes.push_back(static_cast<char>(high * 16 + low));
  }
  value = Variant(std::move(bytes));
  return true;
}

std::string hexText(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text.push_back(kHexDigits[byte >> 4U]);
    text.push_back(kHexDigits[byte & 0xFU]);
  }
  return text;
}

// XML 1.0 has no way to write these, not even by number.
bool isWritable(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const utf8::Decoded character = utf8::decode(text, i);
    const char32_t code = character.codePoint;
    const bool isControl = code < 0x20 && code != '\t' && code != '\n' && code != '\r';
    if (!character.valid || isControl || code == 0xFFFE || code == 0xFFFF) return false;
    i += character.length;
  }
  return true;
}

std::string dateText(Date date, FieldType type) {
  if (type == FieldType::DbTime) return isoText(date, type, kFractionDigits);
  if (type == FieldType::DbDate) return isoDate(date);
  std::string text = isoText(date, FieldType::DbTimeStamp, kFractionDigits);
  text[text.find(' ')] = 'T';
  return text;
}

// The same on every station, whatever its regional settings.
std::string plainText(const Variant& value) {
  if (const auto* number = value.getIf<double>()) return shortestNumber(*number);
  if (const auto* number = value.getIf<float>()) return shortestNumber(*number);
  if (const auto* number = value.getIf<Decimal>()) return number->toText();
  if (const auto* amount = value.getIf<Currency>()) return amount->toText();
  if (const auto* date = value.getIf<Date>()) return dateText(*date, FieldType::DbTimeStamp);
  return value.toText();
}

std::string convert(const Variant& value, FieldType type) {
  switch (kindOf(type)) {
    case FieldKind::Whole:
      return type == FieldType::UnsignedBigInt ? value.toDecimal().toText() : std::to_string(value.toLongLong());
    case FieldKind::Exact:
      return type == FieldType::Currency ? value.toCurrency().toText() : value.toDecimal().toText();
    case FieldKind::Real:
      return type == FieldType::Single ? shortestNumber(value.toSingle()) : shortestNumber(value.toDouble());
    case FieldKind::Boolean:
      return value.toBoolean() ? "True" : "False";
    case FieldKind::Moment:
      return dateText(value.toDate(), type);
    case FieldKind::Bytes:
      return hexText(plainText(value));
    case FieldKind::Text:
      break;
  }
  return plainText(value);
}

// Days on one line; those of a date value run backwards within each day before day zero.
double moment(Date date) {
  const double day = std::trunc(date.serial());
  return day + std::abs(date.serial() - day);
}

// True when reading the text gives the same value again; dates to the microsecond.
bool readsBack(const std::string& text, FieldType type, const Variant& value) {
  constexpr double kTwoMicroseconds = 2.0 / 86'400'000'000;
  Variant again = Null{};
  if (!parseValue(text, type, again)) return false;
  if (const Date* date = again.getIf<Date>()) {
    return std::abs(moment(*date) - moment(value.toDate())) < kTwoMicroseconds;
  }
  return equals(again, value);
}

// What is no number.
bool parseUncounted(std::string_view text, FieldKind kind, Variant& value) {
  if (kind == FieldKind::Boolean) return readBoolean(text, value);
  if (kind == FieldKind::Moment) return readDate(text, value);
  if (kind == FieldKind::Bytes) return readBytes(text, value);
  value.assignText(text);
  return true;
}

}  // namespace

bool parseValue(std::string_view text, FieldType type, Variant& value) {
  switch (type) {
    case FieldType::SmallInt:
      return readWhole<std::int16_t>(text, value);
    case FieldType::Integer:
      return readWhole<std::int32_t>(text, value);
    case FieldType::TinyInt:
      return readWhole<std::int8_t, std::int16_t>(text, value);
    case FieldType::UnsignedTinyInt:
      return readWhole<std::uint8_t>(text, value);
    case FieldType::UnsignedSmallInt:
      return readWhole<std::uint16_t>(text, value);
    case FieldType::UnsignedInt:
      return readWhole<std::uint32_t>(text, value);
    case FieldType::BigInt:
      return readWhole<std::int64_t>(text, value);
    case FieldType::UnsignedBigInt:
      return readWhole<std::uint64_t>(text, value);
    case FieldType::Single:
      return readReal<float>(text, value);
    case FieldType::Double:
      return readReal<double>(text, value);
    case FieldType::Currency:
      return readCurrency(text, value);
    case FieldType::Numeric:
      return readDecimal(text, value);
    default:
      return parseUncounted(text, kindOf(type), value);
  }
}

std::string formatValue(const Variant& value, FieldType type) {
  std::string text;
  bool isHeld = false;
  try {
    text = convert(value, type);
    const FieldKind kind = kindOf(type);
    isHeld = kind == FieldKind::Text ? isWritable(text) : kind == FieldKind::Bytes || readsBack(text, type, value);
  } catch (const RuntimeError&) {
    // Whether the conversion calls it an overflow or no number, this type does not hold it.
  }
  if (!isHeld) throw RuntimeError(error_number::kTypeMismatch);
  return text;
}

}  // namespace qvn::data::persist
