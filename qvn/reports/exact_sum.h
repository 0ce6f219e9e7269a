// Exact sums of amounts.
#pragma once

#include "qvn/base/variant.h"

namespace qvn::reports {

class ExactSum {
 public:
  /// Null adds nothing; floating numbers and texts count as decimals. Throws RuntimeError 13 for what is no number, 6
  /// when it or the sum is out of range; the sum then stays as it was.
  void add(const Variant& value);
  void add(const ExactSum& other) { total_ = total_ + other.total_; }

  /// 0 when nothing was added.
  [[nodiscard]] Variant total() const { return total_.isEmpty() ? Variant(0) : total_; }

 private:
  Variant total_;
};

}  // namespace qvn::reports
