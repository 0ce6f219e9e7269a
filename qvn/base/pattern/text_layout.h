// Texts by text patterns.
//
//   layoutText("5551234", "(@@@) @@@-@@@@") == "(   ) 555-1234";  layoutText("abc", "@@@@@!") == "abc  "
#pragma once

#include <string>
#include <string_view>

namespace qvn::pattern {

/// `text` by one section of a text pattern: each "@" takes a character or prints a blank, each "&" takes a character or
/// prints nothing. The text is set against the right end of the placeholders, with "!" against the left end. Characters
/// that find no placeholder come out at the first one (with "!" at the last one), behind everything when there is none.
/// ">" and "<" put the text, but not the pattern's literals, in capitals or small letters; the last of them counts.
std::string layoutText(std::string_view text, std::string_view section);

}  // namespace qvn::pattern
