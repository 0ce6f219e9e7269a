// How many columns of a terminal a character takes.
#pragma once

namespace qvn::cli {

/// 0 for marks that stand on the character before them, 2 for East Asian wide characters and pictographs, else 1.
int characterWidth(char32_t character) noexcept;

}  // namespace qvn::cli
