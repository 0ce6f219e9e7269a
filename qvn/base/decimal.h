// Decimal: an exact decimal number of up to 65 significant digits, the widest that the supported engines store.
//
//   Decimal::fromText("12.30")->toText() == "12.30";  Decimal::fromInteger(5) + *Decimal::fromText("0.1") is 5.1
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace qvn {

class Decimal {
 public:
  static constexpr std::size_t kMostDigits = 65;

  /// Zero.
  Decimal() = default;

  /// Reads "-123.450" (one sign, digits, at most one "."); the decimals are kept as written. Nothing for other text or
  /// for more than 65 digits in the integer part; decimals beyond 65 digits in all are rounded half away from zero.
  static std::optional<Decimal> fromText(std::string_view text);
  static Decimal fromInteger(std::int64_t value);
  /// The 15 significant digits of a Double. Throws RuntimeError 6 when it is out of range or not a number.
  static Decimal fromDouble(double value);

  [[nodiscard]] double toDouble() const;
  /// The number of units of 10^-`decimals`, rounded half to even; nothing when 64 bits do not hold it.
  [[nodiscard]] std::optional<std::int64_t> toScaled(std::size_t decimals) const;
  /// With "." and every decimal that the number carries: "12.30".
  [[nodiscard]] const std::string& toText() const { return text_; }
  /// "12.3": without trailing zeros in the decimals.
  [[nodiscard]] std::string toTrimmedText() const;
  [[nodiscard]] bool isNegative() const { return text_.front() == '-'; }

  /// Exact, with as many decimals as the longer operand; only decimals beyond 65 digits in all are rounded, half away
  /// from zero. Throws RuntimeError 6 past 65 digits in the integer part.
  friend Decimal operator+(const Decimal& left, const Decimal& right);
  /// By value: 1.50 equals 1.5.
  friend std::strong_ordering operator<=>(const Decimal& left, const Decimal& right);
  friend bool operator==(const Decimal& left, const Decimal& right) { return (left <=> right) == 0; }

 private:
  explicit Decimal(std::string text) : text_(std::move(text)) {}

  // Canonical: an optional "-", at least one integer digit without leading zeros, "." only when decimals follow; no
  // "-0".
  std::string text_ = "0";
};

}  // namespace qvn
