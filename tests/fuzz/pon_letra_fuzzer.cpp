// Any double and legend in words: a text of slots, or error 5, and the amount is written back as promised.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "qvn/base/runtime_error.h"
#include "qvn/text/amount_in_words.h"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

double leftOf(double amount) {
  const double whole = std::floor(amount);
  return whole < 1 ? whole : std::floor(whole / 1e9);
}

void check(double given, const std::string& legend, bool withDecimals) {
  double amount = given;
  std::string trimmed = legend;
  try {
    const std::string text = qvn::text::PonLetra(amount, trimmed, withDecimals, legend);
    require(amount == leftOf(given));
    require(text.ends_with(withDecimals ? trimmed : ""));
    if (!withDecimals) require(text.find_first_not_of(" ABCDEHILMNOQRSTUVYZ") == std::string::npos);
  } catch (const qvn::RuntimeError& error) {
    require(error.number() == qvn::error_number::kInvalidCall);
    const bool isSpeakable = std::isfinite(given) && given <= qvn::text::kLargestAmountInWords;
    require(!isSpeakable || (withDecimals && (given - std::floor(given)) * 100 >= 99.5));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  double amount = 0;
  if (size < sizeof amount) return 0;
  std::memcpy(&amount, data, sizeof amount);
  const std::string legend(reinterpret_cast<const char*>(data) + sizeof amount, size - sizeof amount);
  check(amount, legend, true);
  check(amount, legend, false);
  check(std::fmod(std::abs(amount), 1e10), legend, false);
  return 0;
}
