#include "apps/qvn/key_operands.h"

#include <charconv>
#include <cmath>

#include "apps/qvn/terminal_text.h"

namespace qvn::cli {
namespace {

[[noreturn]] void refuse(std::string_view operand, std::string_view what, std::string_view expected) {
  throw UsageError("«" + safeText(operand) + "» no es " + std::string(what) + "; se espera " + std::string(expected));
}

// The whole operand has to be the number.
template <typename Number, typename... Format>
bool readWhole(std::string_view operand, Number& number, Format... format) {
  const char* const end = operand.data() + operand.size();
  const auto [stop, error] = std::from_chars(operand.data(), end, number, format...);
  return error == std::errc{} && stop == end;
}

}  // namespace

std::vector<std::int64_t> keyOperands(const Arguments& arguments, std::string_view what) {
  if (arguments.operands().empty()) throw UsageError("falta " + std::string(what));
  std::vector<std::int64_t> keys;
  keys.reserve(arguments.operands().size());
  for (const std::string_view operand : arguments.operands()) {
    std::int64_t key = 0;
    if (!readWhole(operand, key)) refuse(operand, what, "un número entero");
    keys.push_back(key);
  }
  return keys;
}

std::int32_t keyOperand(std::string_view operand, std::string_view what) {
  std::int32_t key = 0;
  if (!readWhole(operand, key)) refuse(operand, what, "un número entero, no mayor que 2147483647");
  return key;
}

bool isQuotable(std::string_view text) {
  return text.find_first_of(std::string_view("'\\\0", 3)) == std::string_view::npos;
}

std::string codeOperand(std::string_view operand, std::string_view what) {
  if (operand.empty()) throw UsageError("falta " + std::string(what));
  if (!isQuotable(operand)) refuse(operand, what, "un texto sin comillas sencillas ni diagonales invertidas");
  return std::string(operand);
}

double decimalOperand(std::string_view operand, std::string_view what) {
  double number = 0;
  if (!readWhole(operand, number, std::chars_format::fixed) || !std::isfinite(number)) {
    refuse(operand, what, "un número como 12 o -0.5, con punto decimal y sin comas");
  }
  return number;
}

}  // namespace qvn::cli
