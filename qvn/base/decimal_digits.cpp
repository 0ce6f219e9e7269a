#include "qvn/base/decimal_digits.h"

#include <algorithm>

namespace qvn {

DecimalDigits placePoint(std::string_view digits, std::int64_t pointAt) {
  DecimalDigits number;
  if (pointAt <= 0) {
    number.decimals.assign(static_cast<std::size_t>(-pointAt), '0').append(digits);
    return number;
  }
  const auto whole = static_cast<std::size_t>(pointAt);
  number.whole = digits.substr(0, whole);
  if (whole < digits.size()) {
    number.decimals = digits.substr(whole);
  } else {
    number.whole.resize(whole, '0');
  }
  return number;
}

bool incrementDigits(std::string& digits) {
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] != '9') {
      ++digits[i];
      return false;
    }
    digits[i] = '0';
  }
  return true;
}

void dropLeadingZeros(std::string& digits) { digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size())); }

void roundDecimals(DecimalDigits& number, std::size_t count) {
  if (number.decimals.size() <= count) {
    number.decimals.resize(count, '0');
    return;
  }
  const bool roundsUp = number.decimals[count] >= '5';
  number.decimals.resize(count);
  if (roundsUp && incrementDigits(number.decimals) && incrementDigits(number.whole)) number.whole.insert(0, "1");
}

}  // namespace qvn
