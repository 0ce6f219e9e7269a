// Replacing parts of a text.
//
//   Inserta("_", "b", "abcB") == "a_cB";  ReplaceString("a-b-c", "-", "+") is "a+b+c"
//   std::string text = "a  -   b";  Cambia(" ", "  ", text) == "a - b", and so is `text`
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/variant.h"

namespace qvn::text {

/// `cTarget` with its first occurrence of `cBusca`, without regard to case, replaced by `cInserta`; unchanged without
/// one. An empty `cBusca` is found in front of any text but the empty one.
std::string Inserta(std::string_view cInserta, std::string_view cBusca, std::string_view cTarget);

/// Repeats Inserta until `cBusca` no longer occurs, also where an inserted text has formed a new occurrence with the
/// text around it: ("", "ab", "aabb") gives "". The result is also stored in `cTarget`.
///
/// Takes time linear in the text and in all that is inserted, not in their product.
///
/// @throws RuntimeError  5 when it would not end: `cBusca` occurs and `cInserta` contains it (without regard to case)
/// or
///                       `cBusca` is empty, or inserted texts longer than `cBusca` keep forming new occurrences and
///                       make up more than 64 MiB; 14 when the text passes 1 GiB. `cTarget` is then as it was.
std::string Cambia(std::string_view cInserta, std::string_view cBusca, std::string& cTarget);

/// `strSearch` with every occurrence of `strSearchFor` replaced, with regard to case, from left to right and never
/// inside what was inserted. Empty when `strSearchFor` is empty (save in an empty text) or the result would pass 1 GiB:
/// no error reaches the caller.
Variant ReplaceString(std::string_view strSearch, std::string_view strSearchFor, std::string_view strReplaceWith);

}  // namespace qvn::text
