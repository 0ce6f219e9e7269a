// Texts as a cell holds them.
#pragma once

#include <string>
#include <string_view>

namespace qvn::exports {

/// `text` with "\n" for each line end and U+FFFD for what no XML file holds, cut at kMostTextUnits; a text that is cut
/// ends with "…". Returns true when it was cut.
bool assignCellText(std::string& cell, std::string_view text);

/// "0x" and the bytes in hexadecimal digits, cut likewise.
bool assignCellBytes(std::string& cell, std::string_view bytes);

}  // namespace qvn::exports
