// Account numbers of a chart of accounts with one to five levels, each level a fixed number of characters.
//
//   FormateaCuenta("110101001", 3, 3, 2, 4, 0, 0) == "110-10-1001"
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "qvn/base/variant.h"

namespace qvn::text {

/// The levels of an account number joined by "-".
///
/// @param nNiveles  levels to show: 1 gives `cCuenta` as it stands, a number outside 1 to 5 gives ""
/// @param nNivel1   characters of the first level, and so on; a level past the end of the text is empty but keeps its
/// "-",
///                  and characters past the last level are dropped
/// @throws RuntimeError  5 for a negative width of a level that is shown, when there are two levels or more
std::string FormateaCuenta(std::string_view cCuenta, std::int32_t nNiveles, std::int32_t nNivel1, std::int32_t nNivel2,
                           std::int32_t nNivel3, std::int32_t nNivel4, std::int32_t nNivel5);

/// The deepest of levels 5 to 2 whose segment is above 0, as Val2 reads it; else 1, or 0 when the first segment is
/// negative. An account of blanks is of level 1.
std::int32_t NivelDeCuenta(const Variant& cCuentaNivel1, const Variant& cCuentaNivel2, const Variant& cCuentaNivel3,
                           const Variant& cCuentaNivel4, const Variant& cCuentaNivel5);

}  // namespace qvn::text
