// Counters of the hosts' 16-bit integer type, which fail rather than wrap.
#pragma once

#include <cstdint>
#include <limits>

#include "qvn/base/runtime_error.h"

namespace qvn::barcode {

/// `value` as a 16-bit integer. Throws RuntimeError 6 when it does not fit.
inline std::int16_t toInteger16(std::int64_t value) {
  if (value > std::numeric_limits<std::int16_t>::max() || value < std::numeric_limits<std::int16_t>::min()) {
    throw RuntimeError(error_number::kOverflow);
  }
  return static_cast<std::int16_t>(value);
}

}  // namespace qvn::barcode
