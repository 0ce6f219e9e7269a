#include "qvn/base/decimal_digits.h"

#include <algorithm>

namespace qvn {

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
