#include "apps/qvn/scramble_key.h"

#include <limits>

#include "apps/qvn/key_operands.h"

namespace qvn::cli {

std::int16_t scrambleKey(const Arguments& arguments) {
  const auto text = arguments.value(kKeyOption.name);
  if (!text) {
    throw UsageError("falta --llave NUMERO");
  }
  const std::int32_t key = keyOperand(*text, "un número de llave");
  using Limits = std::numeric_limits<std::int16_t>;
  if (key < Limits::min() || key > Limits::max()) {
    throw UsageError("la llave va de -32768 a 32767");
  }
  return static_cast<std::int16_t>(key);
}

}  // namespace qvn::cli
