#include <algorithm>
#include <cmath>
#include <limits>

#include "qvn/base/runtime_error.h"
#include "qvn/base/variant.h"

namespace qvn {
namespace {

bool isText(const Variant& value) { return value.type() == VariantType::String; }

// Array and Object have no place in arithmetic or comparison.
void requireScalar(const Variant& value) {
  if (value.type() == VariantType::Array || value.type() == VariantType::Object) {
    throw RuntimeError(error_number::kTypeMismatch);
  }
}

// How wide the sum of two values is; the wider operand decides.
enum class Width { Byte, Integer, Long, LongLong, Single, Double, Currency, Decimal, Date };

Width widthOf(const Variant& value) {
  switch (value.type()) {
    case VariantType::Byte:
      return Width::Byte;
    case VariantType::Empty:
    case VariantType::Boolean:
    case VariantType::Integer:
      return Width::Integer;
    case VariantType::Long:
      return Width::Long;
    case VariantType::LongLong:
      return Width::LongLong;
    case VariantType::Single:
      return Width::Single;
    case VariantType::Currency:
      return Width::Currency;
    case VariantType::Decimal:
      return Width::Decimal;
    case VariantType::Date:
      return Width::Date;
    case VariantType::Null:
    case VariantType::Double:
    case VariantType::String:
    case VariantType::Object:
    case VariantType::Array:
      return Width::Double;
  }
  return Width::Double;
}

Width commonWidth(Width left, Width right) {
  const Width wider = std::max(left, right);
  const Width narrower = std::min(left, right);
  // A Single holds an Integer exactly but not a Long; a Currency beside a floating number gives a floating number.
  if (wider == Width::Single && narrower > Width::Integer && narrower != Width::Single) return Width::Double;
  if (wider == Width::Currency && (narrower == Width::Single || narrower == Width::Double)) return Width::Double;
  return wider;
}

template <typename Whole>
bool fits(std::int64_t value) {
  return value >= std::numeric_limits<Whole>::min() && value <= std::numeric_limits<Whole>::max();
}

// The narrowest type from `width` up that holds the sum; past 64 bits a Double.
Variant addWhole(const Variant& left, const Variant& right, Width width) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(left.toLongLong(), right.toLongLong(), &sum)) return left.toDouble() + right.toDouble();
  if (width == Width::Byte && fits<std::uint8_t>(sum)) return static_cast<std::uint8_t>(sum);
  if (width <= Width::Integer && fits<std::int16_t>(sum)) return static_cast<std::int16_t>(sum);
  if (width <= Width::Long && fits<std::int32_t>(sum)) return static_cast<std::int32_t>(sum);
  if (width == Width::LongLong) return sum;
  return static_cast<double>(sum);
}

Variant addFloating(double left, double right) {
  const double sum = left + right;
  if (std::isinf(sum) && std::isfinite(left) && std::isfinite(right)) throw RuntimeError(error_number::kOverflow);
  return sum;
}

Date addDates(double left, double right) {
  const double serial = left + right;
  if (!(serial > Date::kFirstDay - 1 && serial < Date::kLastDay + 1)) throw RuntimeError(error_number::kOverflow);
  return Date(serial);
}

std::weak_ordering order(double left, double right) {
  if (left < right) return std::weak_ordering::less;
  if (left > right) return std::weak_ordering::greater;
  return std::weak_ordering::equivalent;
}

// True for the types that hold numbers which a Double rounds.
bool isWide(Width width) { return width == Width::LongLong || width == Width::Currency || width == Width::Decimal; }
bool isFloating(Width width) { return width == Width::Single || width == Width::Double || width == Width::Date; }

std::weak_ordering compareNumbers(const Variant& left, const Variant& right) {
  const Width leftWidth = widthOf(left);
  const Width rightWidth = widthOf(right);
  if (isFloating(leftWidth) || isFloating(rightWidth) || !(isWide(leftWidth) || isWide(rightWidth))) {
    return order(left.toDouble(), right.toDouble());
  }
  if (std::max(leftWidth, rightWidth) == Width::LongLong) return left.toLongLong() <=> right.toLongLong();
  if (leftWidth == Width::Currency && rightWidth == Width::Currency) return left.toCurrency() <=> right.toCurrency();
  return left.toDecimal() <=> right.toDecimal();
}

// The characters that a text, or Empty beside a text, is compared by.
std::string_view charactersOf(const Variant& value) {
  const auto* text = value.getIf<std::string>();
  return text != nullptr ? std::string_view(*text) : std::string_view();
}

}  // namespace

Variant operator+(const Variant& left, const Variant& right) {
  requireScalar(left);
  requireScalar(right);
  if (left.isNull() || right.isNull()) return Null{};
  if (isText(left) && isText(right)) return *left.getIf<std::string>() + *right.getIf<std::string>();
  if (left.isEmpty() && right.isEmpty()) return std::int16_t{0};
  if (left.isEmpty()) return right;
  if (right.isEmpty()) return left;
  const Width width = commonWidth(widthOf(left), widthOf(right));
  switch (width) {
    case Width::Byte:
    case Width::Integer:
    case Width::Long:
    case Width::LongLong:
      return addWhole(left, right, width);
    case Width::Single: {
      const double sum = left.toDouble() + right.toDouble();
      if (std::abs(sum) > std::numeric_limits<float>::max()) return sum;
      return static_cast<float>(sum);
    }
    case Width::Double:
      return addFloating(left.toDouble(), right.toDouble());
    case Width::Currency:
      return left.toCurrency() + right.toCurrency();
    case Width::Decimal:
      return left.toDecimal() + right.toDecimal();
    case Width::Date:
      return addDates(left.toDouble(), right.toDouble());
  }
  throw RuntimeError(error_number::kTypeMismatch);
}

std::string concatenate(const Variant& left, const Variant& right) {
  return (left.isNull() ? std::string() : left.toText()) + (right.isNull() ? std::string() : right.toText());
}

std::optional<std::weak_ordering> compare(const Variant& left, const Variant& right) {
  requireScalar(left);
  requireScalar(right);
  if (left.isNull() || right.isNull()) return std::nullopt;
  if (!isText(left) && !isText(right)) return compareNumbers(left, right);
  const auto rank = [](const Variant& value, const Variant& other) {
    return isText(value) || (value.isEmpty() && isText(other)) ? 1 : 0;
  };
  const int leftRank = rank(left, right);
  const int rightRank = rank(right, left);
  if (leftRank != rightRank) return leftRank <=> rightRank;
  return charactersOf(left) <=> charactersOf(right);
}

bool equals(const Variant& left, const Variant& right) {
  const auto ordering = compare(left, right);
  return ordering && *ordering == 0;
}

}  // namespace qvn
