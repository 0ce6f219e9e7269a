// Any value under any pattern: the first line of the input is the value, the rest the pattern. Nothing fails but days
// outside the range of dates, well-formed text stays well formed, and no result grows out of proportion.
#include <algorithm>
#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "qvn/base/format_pattern.h"
#include "qvn/base/number_text.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

// A general or long date for each letter of a pattern, two digits with separators for each percent sign, and the 309
// digits of the largest Double.
constexpr std::size_t kMostGrowth = 64;
constexpr std::size_t kMostDigits = 1024;

void check(const qvn::Variant& value, std::string_view pattern, std::size_t valueSize, bool isWellFormed) {
  try {
    const std::string text = qvn::formatValue(value, pattern);
    require(text.size() <= kMostDigits + valueSize + kMostGrowth * pattern.size());
    require(!isWellFormed || qvn::utf8::isValid(text));
  } catch (const qvn::RuntimeError& error) {
    require(error.number() == qvn::error_number::kInvalidCall);
  }
}

double readBits(std::string_view bytes) {
  double value = 0;
  std::memcpy(&value, bytes.data(), std::min(sizeof value, bytes.size()));
  return value;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  // Separators, names of months and currency symbol that differ from those of the C locale.
  require(std::setlocale(LC_ALL, "es_ES.UTF-8") != nullptr);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t end = std::min(input.find('\n'), size);
  const std::string_view text = input.substr(0, end);
  const std::string_view pattern = input.substr(std::min(end + 1, size));
  const bool isWellFormed = qvn::utf8::isValid(input);
  const double number = qvn::parseNumber(text).value_or(readBits(text));
  const qvn::Variant values[] = {
      text,
      number,
      static_cast<float>(number),
      qvn::Date(number),
      qvn::Decimal::fromText(text).value_or(qvn::Decimal()),
      static_cast<std::int64_t>(text.size()) - 5,
      qvn::Null{},
      qvn::Empty{},
      true,
  };
  for (const qvn::Variant& value : values) check(value, pattern, text.size(), isWellFormed);
  return 0;
}
