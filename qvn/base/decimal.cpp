#include "qvn/base/decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

#include "qvn/base/decimal_digits.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/scientific.h"

namespace qvn {
namespace {

// Views into a canonical text.
struct Parts {
  bool negative;
  std::string_view whole;
  std::string_view decimals;
};

Parts take(std::string_view text) {
  const bool isNegative = !text.empty() && text.front() == '-';
  if (isNegative) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos) return {isNegative, text, {}};
  return {isNegative, text.substr(0, point), text.substr(point + 1)};
}

bool areDigits(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// All digits of both numbers in equal columns, so that characters compare and add by position.
struct Aligned {
  std::string left;
  std::string right;
  std::size_t decimals;
};

Aligned align(const Parts& left, const Parts& right) {
  const std::size_t whole = std::max(left.whole.size(), right.whole.size());
  const std::size_t decimals = std::max(left.decimals.size(), right.decimals.size());
  const auto lay = [whole, decimals](const Parts& parts) {
    std::string digits(whole - parts.whole.size(), '0');
    digits.append(parts.whole).append(parts.decimals).append(decimals - parts.decimals.size(), '0');
    return digits;
  };
  return {lay(left), lay(right), decimals};
}

std::string addDigits(const std::string& left, const std::string& right) {
  std::string sum(left.size() + 1, '0');
  int carry = 0;
  for (std::size_t i = left.size(); i-- > 0;) {
    const int column = (left[i] - '0') + (right[i] - '0') + carry;
    sum[i + 1] = static_cast<char>('0' + column % 10);
    carry = column / 10;
  }
  sum[0] = static_cast<char>('0' + carry);
  return sum;
}

// `larger` must not be below `smaller`.
std::string subtractDigits(const std::string& larger, const std::string& smaller) {
  std::string difference = larger;
  int borrow = 0;
  for (std::size_t i = larger.size(); i-- > 0;) {
    int column = larger[i] - smaller[i] - borrow;
    borrow = column < 0 ? 1 : 0;
    if (column < 0) column += 10;
    difference[i] = static_cast<char>('0' + column);
  }
  return difference;
}

std::string canonical(bool isNegative, DecimalDigits number) {
  dropLeadingZeros(number.whole);
  const bool isZero = number.whole.empty() && number.decimals.find_first_not_of('0') == std::string::npos;
  std::string text(isNegative && !isZero ? "-" : "");
  text.append(number.whole.empty() ? "0" : number.whole);
  if (!number.decimals.empty()) text.append(".").append(number.decimals);
  return text;
}

// The 15 significant digits of a finite number that is not negative, without trailing zeros in the decimals.
DecimalDigits significantDigits(double value) {
  constexpr int kSignificantDigits = 15;
  const Scientific rounded = roundedScientific(value, kSignificantDigits);
  return placePoint(rounded.digits(), rounded.exponent() + 1);
}

// True when decimals that are cut off behind the digit `last` round it away from zero, half to even.
bool roundsAwayHalfEven(char last, std::string_view cut) {
  if (cut.empty() || cut.front() != '5') return !cut.empty() && cut.front() > '5';
  return (last - '0') % 2 != 0 || cut.find_first_not_of('0', 1) != std::string_view::npos;
}

}  // namespace

std::optional<Decimal> Decimal::fromText(std::string_view text) {
  const bool hasPlus = !text.empty() && text.front() == '+';
  if (hasPlus) text.remove_prefix(1);
  const Parts parts = take(text);
  if (hasPlus && parts.negative) return std::nullopt;
  if (parts.whole.size() + parts.decimals.size() == 0 || !areDigits(parts.whole) || !areDigits(parts.decimals)) {
    return std::nullopt;
  }
  DecimalDigits number{std::string(parts.whole), std::string(parts.decimals)};
  dropLeadingZeros(number.whole);
  if (number.whole.size() > kMostDigits) return std::nullopt;
  const std::size_t room = kMostDigits - number.whole.size();
  if (number.decimals.size() > room) roundDecimals(number, room);
  if (number.whole.size() > kMostDigits) return std::nullopt;
  // A carry that made the integer part longer has left zeros as the decimals.
  number.decimals.resize(std::min(number.decimals.size(), kMostDigits - number.whole.size()));
  return Decimal(canonical(parts.negative, std::move(number)));
}

Decimal Decimal::fromInteger(std::int64_t value) { return Decimal(std::to_string(value)); }

Decimal Decimal::fromDouble(double value) {
  if (!std::isfinite(value)) throw RuntimeError(error_number::kOverflow);
  auto number = fromText(canonical(value < 0, significantDigits(std::abs(value))));
  if (!number) throw RuntimeError(error_number::kOverflow);
  return *std::move(number);
}

double Decimal::toDouble() const {
  double value = 0;
  std::from_chars(text_.data(), text_.data() + text_.size(), value);
  return value;
}

std::optional<std::int64_t> Decimal::toScaled(std::size_t decimals) const {
  const Parts parts = take(text_);
  const std::string_view kept = parts.decimals.substr(0, decimals);
  std::string digits(parts.negative ? "-0" : "0");  // the zero takes a carry
  digits.append(parts.whole).append(kept).append(decimals - kept.size(), '0');
  if (roundsAwayHalfEven(digits.back(), parts.decimals.substr(kept.size()))) {
    for (std::size_t i = digits.size(); digits[--i]++ == '9';) digits[i] = '0';
  }
  std::int64_t scaled = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), scaled);
  return read.ec == std::errc{} ? std::optional(scaled) : std::nullopt;
}

std::string Decimal::toTrimmedText() const {
  if (text_.find('.') == std::string::npos) return text_;
  std::string text = text_.substr(0, text_.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

Decimal operator+(const Decimal& left, const Decimal& right) {
  const Parts l = take(left.text_);
  const Parts r = take(right.text_);
  const Aligned columns = align(l, r);
  std::string digits;
  bool isNegative = l.negative;
  if (l.negative == r.negative) {
    digits = addDigits(columns.left, columns.right);
  } else if (columns.left >= columns.right) {
    digits = subtractDigits(columns.left, columns.right);
  } else {
    digits = subtractDigits(columns.right, columns.left);
    isNegative = r.negative;
  }
  const std::size_t whole = digits.size() - columns.decimals;
  auto sum = Decimal::fromText(canonical(isNegative, {digits.substr(0, whole), digits.substr(whole)}));
  if (!sum) throw RuntimeError(error_number::kOverflow);
  return *std::move(sum);
}

std::strong_ordering operator<=>(const Decimal& left, const Decimal& right) {
  const Parts l = take(left.text_);
  const Parts r = take(right.text_);
  const Aligned columns = align(l, r);
  if (l.negative != r.negative) return l.negative ? std::strong_ordering::less : std::strong_ordering::greater;
  const int magnitudes = columns.left.compare(columns.right);
  return (l.negative ? -magnitudes : magnitudes) <=> 0;
}

}  // namespace qvn
