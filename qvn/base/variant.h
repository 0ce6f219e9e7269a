// Variant: a loosely typed value, as hosts pass them and as database fields hold them.
//
//   Variant price = 12.5;  price.toText() == "12.5";  (price + Variant(1)).toDouble() == 13.5
//   Variant(Null{}) + price is Null;  Variant("abc").toDouble() throws RuntimeError 13
#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "qvn/base/currency.h"
#include "qvn/base/date.h"
#include "qvn/base/decimal.h"

namespace qvn {

class Variant;

/// Nothing was ever stored; reads as 0 and as "".
struct Empty {
  friend bool operator==(Empty, Empty) { return true; }
};

/// The database's NULL; no value can be read from it.
struct Null {
  friend bool operator==(Null, Null) { return true; }
};

/// Base of what a Variant may hold as an object.
class Object {
 public:
  Object() = default;
  Object(const Object&) = default;
  Object& operator=(const Object&) = default;
  virtual ~Object() = default;
};
using ObjectPtr = std::shared_ptr<Object>;

/// A one-dimensional array whose first element has the index `lowerBound`.
struct Array {
  std::vector<Variant> items;
  std::int32_t lowerBound = 0;
};

/// The platform's type codes.
enum class VariantType {
  Empty = 0,
  Null = 1,
  Integer = 2,
  Long = 3,
  Single = 4,
  Double = 5,
  Currency = 6,
  Date = 7,
  String = 8,
  Object = 9,
  Boolean = 11,
  Decimal = 14,
  Byte = 17,
  LongLong = 20,
  Array = 8192,
};

class Variant {
 public:
  using Storage = std::variant<Empty, Null, bool, std::uint8_t, std::int16_t, std::int32_t, std::int64_t, float, double,
                               Currency, Decimal, Date, std::string, Array, ObjectPtr>;

  Variant() = default;
  Variant(Empty) {}                                              // NOLINT(google-explicit-constructor): values convert
  Variant(Null) : value_(Null{}) {}                              // NOLINT(google-explicit-constructor)
  Variant(float value) : value_(value) {}                        // NOLINT(google-explicit-constructor)
  Variant(double value) : value_(value) {}                       // NOLINT(google-explicit-constructor)
  Variant(Currency value) : value_(value) {}                     // NOLINT(google-explicit-constructor)
  Variant(Decimal value) : value_(std::move(value)) {}           // NOLINT(google-explicit-constructor)
  Variant(Date value) : value_(value) {}                         // NOLINT(google-explicit-constructor)
  Variant(const char* text) : value_(std::string(text)) {}       // NOLINT(google-explicit-constructor)
  Variant(std::string_view text) : value_(std::string(text)) {}  // NOLINT(google-explicit-constructor)
  Variant(std::string text) : value_(std::move(text)) {}         // NOLINT(google-explicit-constructor)
  Variant(Array array) : value_(std::move(array)) {}             // NOLINT(google-explicit-constructor)
  Variant(ObjectPtr object) : value_(std::move(object)) {}       // NOLINT(google-explicit-constructor)

  /// Boolean, Byte, Integer, Long or LongLong, by width; an unsigned 64-bit number becomes a Decimal.
  template <std::integral Number>
  requires(!std::same_as<Number, char>) Variant(Number value)
      : value_(fromIntegral(value)) {}  // NOLINT(google-explicit-constructor)

  /// Stores a number of exactly this type; in place when one of the same type is held, as in a column's rows.
  template <typename Number>
  requires(std::same_as<Number, bool> || std::same_as<Number, std::int16_t> || std::same_as<Number, std::int32_t> ||
           std::same_as<Number, std::int64_t> || std::same_as<Number, double> || std::same_as<Number, Date>) Variant&
  operator=(Number value) {
    value_ = value;
    return *this;
  }

  [[nodiscard]] VariantType type() const noexcept;
  [[nodiscard]] bool isEmpty() const noexcept { return std::holds_alternative<Empty>(value_); }
  [[nodiscard]] bool isNull() const noexcept { return std::holds_alternative<Null>(value_); }
  [[nodiscard]] bool isText() const noexcept { return std::holds_alternative<std::string>(value_); }
  /// Boolean, any number or a date; neither text, even of digits, nor Empty.
  [[nodiscard]] bool isNumeric() const noexcept;

  /// The value held, when it is exactly a T.
  template <typename T>
  [[nodiscard]] const T* getIf() const noexcept {
    return std::get_if<T>(&value_);
  }
  [[nodiscard]] const Storage& storage() const noexcept { return value_; }

  /// Stores text in place; memory of a text held before is used again.
  void assignText(std::string_view text) {
    if (auto* held = std::get_if<std::string>(&value_)) {
      held->assign(text);
    } else {
      value_.emplace<std::string>(text);
    }
  }

  // Conversions by the platform's rules. All throw RuntimeError 94 for Null, 13 for text that is not a number and for
  // arrays and objects, and 6 when the value is out of range. Fractions are rounded half to even. True is -1.

  [[nodiscard]] double toDouble() const;
  [[nodiscard]] float toSingle() const;
  [[nodiscard]] std::uint8_t toByte() const;
  [[nodiscard]] std::int16_t toInteger() const;
  [[nodiscard]] std::int32_t toLong() const;
  [[nodiscard]] std::int64_t toLongLong() const;
  /// Text may be "True" or "False" in any case, or a number.
  [[nodiscard]] bool toBoolean() const;
  [[nodiscard]] Currency toCurrency() const;
  [[nodiscard]] Decimal toDecimal() const;
  /// Text is read as a date by the regional order of day, month and year, or in ISO form; numbers are day counts.
  [[nodiscard]] Date toDate() const;
  /// Doubles give the shortest text that reads back to them, decimals and currencies their digits, all with the
  /// regional separator; a Boolean is "True" or "False"; a date has the regional short form; Empty is "".
  [[nodiscard]] std::string toText() const;

 private:
  template <std::integral Number>
  static Storage fromIntegral(Number value) {
    if constexpr (std::same_as<Number, bool>) {
      return value;
    } else if constexpr (sizeof(Number) == 1) {
      if constexpr (std::is_unsigned_v<Number>) {
        return static_cast<std::uint8_t>(value);
      } else {
        return static_cast<std::int16_t>(value);
      }
    } else if constexpr (std::is_signed_v<Number>) {
      if constexpr (sizeof(Number) == 2) return static_cast<std::int16_t>(value);
      if constexpr (sizeof(Number) == 4) return static_cast<std::int32_t>(value);
      if constexpr (sizeof(Number) == 8) return static_cast<std::int64_t>(value);
    } else if constexpr (sizeof(Number) == 2) {
      return static_cast<std::int32_t>(value);
    } else if constexpr (sizeof(Number) == 4) {
      return static_cast<std::int64_t>(value);
    } else {
      return fromUnsigned(value);
    }
  }
  static Decimal fromUnsigned(std::uint64_t value);

  Storage value_;
};

/// The platform's addition: Null spreads, two texts are joined, a text beside a number is read as a number (error 13
/// when it is none), whole numbers grow into the next wider type instead of overflowing, Decimal and Currency stay
/// exact.
Variant operator+(const Variant& left, const Variant& right);

/// Joins the texts of two values; Null counts as "".
std::string concatenate(const Variant& left, const Variant& right);

/// The platform's comparison: numbers (Booleans and dates among them) by value, texts by their characters, any number
/// before any text, Empty as 0 beside a number and as "" beside a text. Nothing when either is Null.
/// Throws RuntimeError 13 for arrays and objects.
std::optional<std::weak_ordering> compare(const Variant& left, const Variant& right);

/// True when compare() finds them equal; Null equals nothing, not even Null.
bool equals(const Variant& left, const Variant& right);

}  // namespace qvn
