#include "qvn/data/drivers/sqlite/sqlite_value.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

#include "qvn/data/iso_date.h"

namespace qvn::data::sqlite {
namespace {

template <typename Whole>
bool fits(std::int64_t number) {
  return number >= std::numeric_limits<Whole>::min() && number <= std::numeric_limits<Whole>::max();
}

// The narrowest type from the declared one up.
void readWhole(std::int64_t number, FieldType type, Variant& value) {
  switch (type) {
    case FieldType::BigInt:
      value = number;
      return;
    case FieldType::Double:
      value = static_cast<double>(number);
      return;
    case FieldType::Boolean:
      value = number != 0;
      return;
    case FieldType::Numeric:
      value = Decimal::fromInteger(number);
      return;
    case FieldType::Currency:
      if (!fits<std::int32_t>(number)) break;
      value = Currency::fromScaled(number * Currency::kScale);
      return;
    case FieldType::SmallInt:
    case FieldType::TinyInt:
      if (!fits<std::int16_t>(number)) break;
      value = static_cast<std::int16_t>(number);
      return;
    default:
      break;
  }
  if (fits<std::int32_t>(number)) {
    value = static_cast<std::int32_t>(number);
  } else {
    value = number;
  }
}

void readReal(double number, FieldType type, Variant& value) {
  // Infinities and amounts beyond the exact types stay Doubles.
  constexpr double kLargestNumeric = 1e60;
  constexpr double kLargestCurrency = 9e14;
  const double size = std::abs(number);
  if (type == FieldType::Numeric && size < kLargestNumeric) {
    value = Decimal::fromDouble(number);
  } else if (type == FieldType::Currency && size < kLargestCurrency) {
    value = Currency::fromDouble(number);
  } else {
    value = number;
  }
}

void readText(std::string_view text, FieldType type, Variant& value) {
  switch (type) {
    case FieldType::Date:
    case FieldType::DbTimeStamp:
    case FieldType::DbTime:
      if (const auto date = parseIsoDate(text)) {
        value = *date;
        return;
      }
      break;
    case FieldType::Numeric:
      if (auto decimal = Decimal::fromText(text)) {
        value = *std::move(decimal);
        return;
      }
      break;
    default:
      break;
  }
  value.assignText(text);
}

}  // namespace

void convertValue(sqlite3_value* cell, FieldType type, Variant& value) {
  switch (sqlite3_value_type(cell)) {
    case SQLITE_INTEGER:
      readWhole(sqlite3_value_int64(cell), type, value);
      break;
    case SQLITE_FLOAT:
      readReal(sqlite3_value_double(cell), type, value);
      break;
    case SQLITE_NULL:
      value = Null{};
      break;
    case SQLITE_BLOB:
      value.assignText(bytesOf(cell));
      break;
    default:
      readText(textOf(cell), type, value);
      break;
  }
}

}  // namespace qvn::data::sqlite
