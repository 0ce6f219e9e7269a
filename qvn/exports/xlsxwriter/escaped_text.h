// Texts that a reader of .xlsx files would take for escapes.
#pragma once

#include <string>
#include <string_view>

namespace qvn::exports::xlsxwriter {

/// Readers take "_x0041_" for an "A" (ECMA-376, ST_Xstring); here its first "_" is written as an escape itself,
/// "_x005F_x0041_", so that the text is read as it was.
std::string escapedText(std::string_view text);

/// True when escapedText() would change the text.
bool needsEscape(std::string_view text);

}  // namespace qvn::exports::xlsxwriter
