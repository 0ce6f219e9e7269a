// The key of the commands that scramble texts and undo it.
#pragma once

#include <cstdint>

#include "apps/qvn/options.h"

namespace qvn::cli {

inline constexpr Option kKeyOption{"llave", 'k', "NUMERO", "la llave, de -32768 a 32767; hace falta siempre"};

/// Throws UsageError when it is missing or no number of 16 bits.
std::int16_t scrambleKey(const Arguments& arguments);

}  // namespace qvn::cli
