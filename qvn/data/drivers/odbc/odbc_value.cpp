#include "qvn/data/drivers/odbc/odbc_value.h"

#include <sqlext.h>

#include <charconv>
#include <cstdint>
#include <cstring>
#include <system_error>

#include "qvn/base/number_text.h"
#include "qvn/data/field_kind.h"
#include "qvn/data/iso_date.h"

namespace qvn::data::odbc {
namespace {

template <typename Number>
Number numberIn(std::string_view bytes) {
  Number number{};
  std::memcpy(&number, bytes.data(), sizeof number);
  return number;
}

void readMoment(std::string_view bytes, FieldType type, Variant& value) {
  const auto moment = numberIn<SQL_TIMESTAMP_STRUCT>(bytes);
  // Such as the zero dates of some engines.
  if (!Date::isCivil(moment.year, moment.month, moment.day)) {
    value = Null{};
    return;
  }
  const Date date = Date::fromCivil(moment.year, moment.month, moment.day);
  if (type == FieldType::Date) {
    value = date;
    return;
  }
  constexpr double kSecondsPerDay = 86400;
  constexpr double kFractionsPerSecond = 1e9;
  const double time =
      (moment.hour * 3600 + moment.minute * 60 + moment.second + moment.fraction / kFractionsPerSecond) /
      kSecondsPerDay;
  value = Date(date.serial() + (date.serial() < 0 ? -time : time));
}

// A number's text as a value of its type.
void convertNumber(Decimal number, FieldType type, Variant& value) {
  value = std::move(number);
  switch (type) {
    case FieldType::Boolean:
      value = value.toBoolean();
      break;
    case FieldType::TinyInt:
    case FieldType::SmallInt:
      value = value.toInteger();
      break;
    case FieldType::UnsignedTinyInt:
      value = Variant(value.toByte());
      break;
    case FieldType::Integer:
      value = value.toLong();
      break;
    case FieldType::BigInt:
      value = value.toLongLong();
      break;
    case FieldType::Single:
      value = Variant(value.toSingle());
      break;
    case FieldType::Double:
      value = value.toDouble();
      break;
    case FieldType::Currency:
      value = Variant(value.toCurrency());
      break;
    default:
      break;
  }
}

// A number as the engine writes it, and nothing that a text would rather be, such as "007" or "1.50".
bool readUntyped(std::string_view text, Variant& value) {
  double number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc{} || read.ptr != text.data() + text.size()) return false;
  const std::string_view shown = text.ends_with(".0") ? text.substr(0, text.size() - 2) : text;
  if (shortestNumber(number) != shown) return false;
  value = number;
  return true;
}

// A value that its type cannot hold stays the text that it came as.
void readText(std::string_view text, FieldType type, Variant& value) {
  const FieldKind kind = kindOf(type);
  if (kind == FieldKind::Moment) {
    if (const auto date = parseIsoDate(text)) {
      value = *date;
      return;
    }
  } else if (kind != FieldKind::Text && kind != FieldKind::Bytes) {
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (auto decimal = Decimal::fromText(text)) {
      convertNumber(*std::move(decimal), type, value);
      return;
    }
    if (type == FieldType::Double && read.ec == std::errc{} && read.ptr == text.data() + text.size()) {
      value = number;
      return;
    }
  }
  value.assignText(text);
}

}  // namespace

void readValue(std::string_view bytes, const Transfer& transfer, FieldType type, Variant& value) {
  switch (transfer.type) {
    case SQL_C_BIT:
      value = bytes.front() != '\0';
      break;
    case SQL_C_SSHORT:
      value = numberIn<std::int16_t>(bytes);
      break;
    case SQL_C_SLONG:
      value = numberIn<std::int32_t>(bytes);
      break;
    case SQL_C_SBIGINT:
      value = numberIn<std::int64_t>(bytes);
      break;
    case SQL_C_FLOAT:
      value = numberIn<float>(bytes);
      break;
    case SQL_C_DOUBLE:
      value = numberIn<double>(bytes);
      break;
    case SQL_C_TYPE_TIMESTAMP:
      readMoment(bytes, type, value);
      break;
    default:
      if (transfer.isUntyped && readUntyped(bytes, value)) break;
      readText(bytes, type, value);
      break;
  }
}

}  // namespace qvn::data::odbc
