// Amounts in hundredths, so that adding them is exact.
#pragma once

#include <cmath>
#include <cstdint>

namespace mostrador {

using Cents = std::int64_t;

inline Cents toCents(double amount) { return std::llround(amount * 100); }
inline double toAmount(Cents cents) { return static_cast<double>(cents) / 100; }

}  // namespace mostrador
