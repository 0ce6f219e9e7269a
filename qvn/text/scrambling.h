// Short texts made unreadable at a glance, and back. This hides nothing from anyone who looks: every character is
// shifted by the same amount, round(key / 64).
//
//   Encrypta("CLAVE", 64) == "DMBWF";  Decrypta("DMBWF", 64) == "CLAVE"
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qvn::text {

/// Each character's code in code page 1252 plus the shift, which is `nLlave` / 64 rounded half to even: keys -32 to 32
/// change nothing. Where the result is no code (0 to 255), the character written before it is written again, nothing at
/// the beginning. A character outside the page, or a byte that is not UTF-8, counts as "?". Never fails.
std::string Encrypta(std::string_view cTexto, std::int16_t nLlave);

/// The inverse, of the text without blanks at its ends: a scrambled text that begins or ends with a blank does not come
/// back. Throws RuntimeError 5 where the result is no code.
std::string Decrypta(std::string_view cTexto, std::int16_t nLlave);

}  // namespace qvn::text
