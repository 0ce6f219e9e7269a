// Splitting a text at a separator into a caller's array.
//
//   std::string text = "a,b,,c";  std::vector<std::string> items;
//   Separador(",", text, items) == 4;  items[1] == "a";  items[3] == "";  text == "a,b,,c,"
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/base/variant.h"

namespace qvn::text {

/// Splits `strSearch` into `List` and returns the number of items.
///
/// `strSearch` keeps the separator that closes its last item. Items stand at the indices 1 to the result; the list then
/// ends, and index 0 keeps what it held. Separators are compared with regard to case, from left to right: what is left
/// after the last one of several characters that overlap is no item.
///
/// @param strSearch  must not be an element of `List`
/// @throws RuntimeError  5 when `Separator` is empty and `strSearch` is not; both empty give 0 and leave `List` alone
std::int32_t Separador(std::string_view Separator, std::string& strSearch, std::vector<std::string>& List);

/// As Separador, for loosely typed values: the separator and the text are taken as text, and `strSearch` and the items
/// become texts. Throws RuntimeError 94 when one is Null, and then changes nothing.
std::int32_t DataSeparator(const Variant& Separator, Variant& strSearch, std::vector<Variant>& List);

}  // namespace qvn::text
