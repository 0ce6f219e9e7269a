#include "qvn/text/decimal_text.h"

#include "qvn/base/number_text.h"
#include "qvn/base/regional.h"

namespace qvn::text {

std::string SeparadorDecimal() { return regionalNumber(0.5).find('.') != std::string::npos ? "." : ","; }

std::string FormatoDecimal(double uValue) { return generalNumber(uValue); }

double Fn(std::string_view strValue) {
  // Not SeparadorDecimal(): where the separator is neither "." nor ",", the text would not read back.
  const std::string separator = decimalSeparator();
  if (separator == ".") return parseNumber(strValue).value_or(0);
  std::string regional;
  regional.reserve(strValue.size() + separator.size());
  for (const char c : strValue) {
    if (c == '.') {
      regional.append(separator);
    } else {
      regional.push_back(c);
    }
  }
  return parseNumber(regional).value_or(0);
}

double Val2(const Variant& uDato) {
  if (const auto* text = uDato.getIf<std::string>()) return parseNumber(*text).value_or(0);
  return uDato.isNumeric() ? uDato.toDouble() : 0;
}

}  // namespace qvn::text
