// Padding texts to a width, and reading missing values as empty text. Widths count characters.
//
//   PadR("ABC", 5) == "ABC  ";  strCero(5, 2) == "05";  cNull(Null{}) == ""
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "qvn/base/variant.h"

namespace qvn::text {

/// The text of `str` followed by blanks up to `nVeces` characters; unchanged when it is that long already or the width
/// is negative. Throws RuntimeError 94 when either is Null, 13 for a width that is not a number, 14 for a text past 1
/// GiB.
std::string PadR(const Variant& str, const Variant& nVeces);

/// As PadR, with the blanks in front. First turns the caller's `str` into its text, Null into ""; it stays so when the
/// width then fails.
std::string PadL(Variant& str, const Variant& nVeces);

/// `cChar`, of any length, `nVeces` times over; "" for 0 or less. Throws RuntimeError 14 for a text past 1 GiB.
std::string Replicate(std::string_view cChar, std::int32_t nVeces);

/// The number with zeros in front, up to `nCeros` characters. The sign is a character like any other and stays where it
/// was: -5 to three is "0-5". Throws RuntimeError 5 for a number of more characters than that.
std::string strCero(std::int32_t nNumero, std::int16_t nCeros);

/// True when nothing is left after removing blanks at both ends.
bool clEmpty(std::string_view cDato);

/// "" for Null, otherwise the value's text. Throws RuntimeError 13 for arrays and objects.
std::string cNull(const Variant& uDato);

}  // namespace qvn::text
