#include "qvn/base/pattern/scientific_layout.h"

#include <algorithm>

namespace qvn::pattern {
namespace {

std::int64_t floorToMultiple(std::int64_t value, std::int64_t step) {
  const std::int64_t rest = value % step;
  return value - (rest < 0 ? rest + step : rest);
}

FittedNumber fitWithExponent(const SignificantDigits& number, const NumberSection& section, std::int64_t exponent) {
  FittedNumber fitted{shifted(number, section.shift - exponent), exponent};
  roundDecimals(fitted.digits, section.decimalPlaces);
  return fitted;
}

}  // namespace

FittedNumber fitScientific(const SignificantDigits& number, const NumberSection& section) {
  if (number.digits.empty()) return fitWithExponent(number, section, 0);
  const auto places = static_cast<std::int64_t>(section.wholePlaces);
  const std::int64_t pointAt = number.pointAt + section.shift;
  const bool isEngineering = places > 1 && section.requiredWhole < section.wholePlaces;
  const std::int64_t exponent = isEngineering ? floorToMultiple(pointAt - 1, places) : pointAt - places;
  FittedNumber fitted = fitWithExponent(number, section, exponent);
  if (fitted.digits.whole.size() <= section.wholePlaces) return fitted;
  return fitWithExponent(number, section, exponent + (isEngineering ? places : 1));
}

}  // namespace qvn::pattern
