// The text of an input box, laid out as the box's format code asks.
#pragma once

#include <string>
#include <string_view>

#include "qvn/host/ambiente.h"
#include "qvn/host/text_box.h"

namespace qvn::text {

/// The box's text, formatted by the code in its `Tag`; codes are compared exactly.
///
///   "N"           the text, by pattern B
///   "D", "SN"     its number (Val2) as a general number with the regional separator
///   "SD"          its number by pattern A
///   "FE"          its number by pattern C
///   "ND"          its number by "###,###,###"
///   "SF"          ""
///   anything else the text as it is
///
/// The box's text stays; its `SelStart` is read before and written back, unchanged, after formatting. Fails never: what
/// cannot be read counts as blank, and what cannot be formatted gives "".
///
/// @param Ambiente  gives the patterns A and B when `Formato` is blank, and C always; when null, missing patterns are
/// ""
/// @param Formato   serves as both A and B
std::string AplicaFormato(host::TextBox& Text, const host::Ambiente* Ambiente, std::string_view Formato = {});

}  // namespace qvn::text
