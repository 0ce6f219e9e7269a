// Floating-point numbers taken apart into decimal digits.
//
//   shortestScientific(-0.00125) is the digits "125" with the exponent -3, negative: -1.25 x 10^-3
#pragma once

#include <array>
#include <string_view>

namespace qvn {

/// The significant digits of a number, without trailing zeros, and the power of ten of the first one.
class Scientific {
 public:
  /// Takes apart to_chars' scientific form, such as "-1.25e-07".
  explicit Scientific(std::string_view text);

  [[nodiscard]] std::string_view digits() const { return {digits_.data(), count_}; }
  [[nodiscard]] int exponent() const { return exponent_; }
  [[nodiscard]] bool isNegative() const { return isNegative_; }

 private:
  std::array<char, 20> digits_{};
  std::size_t count_ = 0;
  int exponent_ = 0;
  bool isNegative_ = false;
};

/// The fewest digits that read back to the same finite value.
Scientific shortestScientific(double value);
Scientific shortestScientific(float value);

/// A finite value rounded to `digits` significant digits, 17 at most.
Scientific roundedScientific(double value, int digits);

}  // namespace qvn
