// A sum of many doubles whose error does not grow with their number.
#pragma once

#include <cmath>

namespace qvn::exports {

/// Neumaier's compensated summation.
class RunningSum {
 public:
  void add(double number) {
    const double sum = sum_ + number;
    lost_ += std::abs(sum_) >= std::abs(number) ? (sum_ - sum) + number : (number - sum) + sum_;
    sum_ = sum;
  }
  [[nodiscard]] double total() const { return sum_ + lost_; }

 private:
  double sum_ = 0;
  double lost_ = 0;
};

}  // namespace qvn::exports
