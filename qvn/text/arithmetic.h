// Small calculations on loosely typed values.
#pragma once

#include <cstdint>

#include "qvn/base/variant.h"

namespace qvn::text {

/// Square root; 0 when `nDato` is negative. Throws RuntimeError 94 for Null and 13 for text that is not a number.
double Sqr2(const Variant& nDato);

/// The larger number; `nNumero1` when they are equal, `nNumero2` when either is NaN.
double Max(double nNumero1, double nNumero2);

/// The smaller number; `nNumero2` when they are equal or either is NaN.
double Min(double nNumero1, double nNumero2);

/// True exactly when `nValue` is 1: not for -1, the number of True.
bool bolValue(std::int16_t nValue);

/// 1 for True, 0 for False.
std::int16_t bolInt(bool bolValue);

}  // namespace qvn::text
