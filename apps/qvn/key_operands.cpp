#include "apps/qvn/key_operands.h"

#include <charconv>
#include <string>

#include "apps/qvn/terminal_text.h"

namespace qvn::cli {

std::vector<std::int64_t> keyOperands(const Arguments& arguments, std::string_view what) {
  if (arguments.operands().empty()) throw UsageError("falta " + std::string(what));
  std::vector<std::int64_t> keys;
  keys.reserve(arguments.operands().size());
  for (const std::string_view operand : arguments.operands()) {
    std::int64_t key = 0;
    const char* const end = operand.data() + operand.size();
    const auto [stop, error] = std::from_chars(operand.data(), end, key);
    if (error != std::errc{} || stop != end) {
      throw UsageError("«" + safeText(operand) + "» no es " + std::string(what) + "; se espera un número entero");
    }
    keys.push_back(key);
  }
  return keys;
}

}  // namespace qvn::cli
