#include "qvn/text/scrambling.h"

#include <cmath>
#include <optional>

#include "qvn/base/code_page_1252.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"

namespace qvn::text {
namespace {

int shiftOf(std::int16_t key) { return static_cast<int>(std::nearbyint(key / 256.0 * 4)); }

std::optional<char> shifted(char code, int shift) {
  const int moved = static_cast<std::uint8_t>(code) + shift;
  if (moved < 0 || moved > 255) {
    return std::nullopt;
  }
  return static_cast<char>(static_cast<std::uint8_t>(moved));
}

}  // namespace

std::string Encrypta(std::string_view cTexto, std::int16_t nLlave) {
  const int shift = shiftOf(nLlave);
  const std::string plain = cp1252::encode(cTexto);
  std::string scrambled;
  scrambled.reserve(plain.size());
  for (const char code : plain) {
    if (const auto moved = shifted(code, shift)) {
      scrambled.push_back(*moved);
    } else if (!scrambled.empty()) {
      scrambled.push_back(scrambled.back());
    }
  }
  return cp1252::decode(scrambled);
}

std::string Decrypta(std::string_view cTexto, std::int16_t nLlave) {
  const int shift = shiftOf(nLlave);
  std::string codes = cp1252::encode(utf8::trimBlanks(cTexto));
  for (char& code : codes) {
    const auto moved = shifted(code, -shift);
    if (!moved) {
      throw RuntimeError(error_number::kInvalidCall,
                         "El texto no se puede descifrar con esta llave: da un código fuera de 0 a 255", "Decrypta");
    }
    code = *moved;
  }
  return cp1252::decode(codes);
}

}  // namespace qvn::text
