// Reading numbers from any text: nothing fails, every result is finite, and what FormatoDecimal writes reads back.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "qvn/base/number_text.h"
#include "qvn/text/decimal_text.h"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

// Larger values may round up, at 15 digits, to a text beyond the largest Double.
constexpr double kLargestWritten = 1.79769313486231e308;

void checkRoundTrip(double value) {
  if (std::abs(value) > kLargestWritten) return;
  const std::string text = qvn::text::FormatoDecimal(value);
  const double back = qvn::text::Fn(text);
  require(qvn::text::FormatoDecimal(back) == text);
  // 15 digits where there is an exponent, 15 decimals at most elsewhere.
  require(std::abs(back - value) <= std::abs(value) * 1e-14 + 1e-15);
}

void check(std::string_view text) {
  const double value = qvn::text::Val2(text);
  require(std::isfinite(value));
  const auto parsed = qvn::parseNumber(text);
  require(value == parsed.value_or(0));
  // Blanks around a number are no part of it.
  const std::string padded = " " + std::string(text) + " ";
  require(qvn::parseNumber(padded) == parsed);
  const double travelled = qvn::text::Fn(text);
  require(std::isfinite(travelled));
  checkRoundTrip(value);
  checkRoundTrip(travelled);
}

qvn::RegionalSettings commaSettings() {
  qvn::RegionalSettings settings;
  settings.decimalSeparator = ",";
  settings.thousandsSeparator = ".";
  return settings;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  check(text);
  const auto comma = qvn::parseNumber(text, commaSettings());
  require(std::isfinite(comma.value_or(0)));
  return 0;
}
