#include "qvn/text/statistics.h"

#include <cmath>
#include <cstddef>
#include <vector>

#include "qvn/base/runtime_error.h"

namespace qvn::text {
namespace {

// Elements 1 to n - 1. Throws what reading an element throws, 9 for an index that is missing.
std::vector<double> innerElements(const Array& array, std::int64_t upperBound) {
  if (array.lowerBound > 1) {
    throw RuntimeError(error_number::kSubscriptOutOfRange);
  }
  std::vector<double> numbers;
  numbers.reserve(static_cast<std::size_t>(upperBound - 1));
  for (std::int64_t index = 1; index < upperBound; ++index) {
    numbers.push_back(array.items[static_cast<std::size_t>(index - array.lowerBound)].toDouble());
  }
  return numbers;
}

double deviation(const std::vector<double>& numbers) {
  const auto count = static_cast<double>(numbers.size());
  double sum = 0;
  for (const double number : numbers) {
    sum += number;
  }
  const double mean = sum / count;
  double squares = 0;
  for (const double number : numbers) {
    squares += (number - mean) * (number - mean);
  }
  return std::sqrt(squares / (count - 1));
}

}  // namespace

Variant numeroAleatorio(std::int32_t upperbound, std::int32_t lowerbound, RandomSource& random) {
  const double low = lowerbound;
  return random.next() * (upperbound - low + 1) + low;
}

double StdDev(const Variant& a) {
  const auto* array = a.getIf<Array>();
  if (array == nullptr) {
    return 0;
  }
  const std::int64_t upperBound = array->lowerBound + static_cast<std::int64_t>(array->items.size()) - 1;
  if (upperBound <= 2) {
    return 0;
  }
  try {
    const double result = deviation(innerElements(*array, upperBound));
    return std::isfinite(result) ? result : 0;
  } catch (const RuntimeError&) {
    // Hosts get the value reached so far, and nothing is reached before the last step.
    return 0;
  }
}

}  // namespace qvn::text
