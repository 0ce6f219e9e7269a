// Currency: an exact amount with four decimals, held as a 64-bit count of ten-thousandths.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>

namespace qvn {

class Currency {
 public:
  static constexpr std::size_t kDecimals = 4;
  static constexpr std::int64_t kScale = 10000;

  constexpr Currency() = default;
  /// From a count of ten-thousandths.
  static constexpr Currency fromScaled(std::int64_t scaled) { return Currency(scaled); }
  /// Rounded to four decimals, half to even. Throws RuntimeError 6 when out of range or not a number.
  static Currency fromDouble(double value);

  [[nodiscard]] constexpr std::int64_t scaled() const { return scaled_; }
  [[nodiscard]] double toDouble() const;
  /// With "." and without trailing zeros: "10.5".
  [[nodiscard]] std::string toText() const;

  /// Throws RuntimeError 6 when the sum is out of range.
  friend Currency operator+(Currency left, Currency right);
  friend constexpr auto operator<=>(const Currency&, const Currency&) = default;

 private:
  constexpr explicit Currency(std::int64_t scaled) : scaled_(scaled) {}
  std::int64_t scaled_ = 0;
};

}  // namespace qvn
