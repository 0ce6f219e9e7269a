#include "qvn/text/arithmetic.h"

#include <cmath>

namespace qvn::text {

double Sqr2(const Variant& nDato) {
  const double number = nDato.toDouble();
  return number < 0 ? 0 : std::sqrt(number);
}

double Max(double nNumero1, double nNumero2) { return nNumero1 >= nNumero2 ? nNumero1 : nNumero2; }

double Min(double nNumero1, double nNumero2) { return nNumero1 < nNumero2 ? nNumero1 : nNumero2; }

bool bolValue(std::int16_t nValue) { return nValue == 1; }

std::int16_t bolInt(bool bolValue) { return bolValue ? 1 : 0; }

}  // namespace qvn::text
