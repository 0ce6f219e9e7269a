#include "qvn/text/account.h"

#include <array>
#include <cstddef>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/text/decimal_text.h"

namespace qvn::text {

std::string FormateaCuenta(std::string_view cCuenta, std::int32_t nNiveles, std::int32_t nNivel1, std::int32_t nNivel2,
                           std::int32_t nNivel3, std::int32_t nNivel4, std::int32_t nNivel5) {
  const std::array<std::int32_t, 5> widths = {nNivel1, nNivel2, nNivel3, nNivel4, nNivel5};
  if (nNiveles == 1) return std::string(cCuenta);
  if (nNiveles < 1 || nNiveles > std::ssize(widths)) return {};
  std::string levels;
  for (std::size_t level = 0; level < static_cast<std::size_t>(nNiveles); ++level) {
    if (widths[level] < 0) {
      throw RuntimeError(error_number::kInvalidCall, "El ancho de un nivel de la cuenta es negativo");
    }
    const std::string_view slice = utf8::left(cCuenta, static_cast<std::size_t>(widths[level]));
    if (level > 0) levels.push_back('-');
    levels.append(slice);
    cCuenta.remove_prefix(slice.size());
  }
  return levels;
}

std::int32_t NivelDeCuenta(const Variant& cCuentaNivel1, const Variant& cCuentaNivel2, const Variant& cCuentaNivel3,
                           const Variant& cCuentaNivel4, const Variant& cCuentaNivel5) {
  if (Val2(cCuentaNivel5) > 0) return 5;
  if (Val2(cCuentaNivel4) > 0) return 4;
  if (Val2(cCuentaNivel3) > 0) return 3;
  if (Val2(cCuentaNivel2) > 0) return 2;
  return Val2(cCuentaNivel1) >= 0 ? 1 : 0;
}

}  // namespace qvn::text
