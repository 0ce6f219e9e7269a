// Texts as one line of a report holds them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qvn::reports {

/// With blanks for line ends and other control characters, and U+FFFD for what is not UTF-8.
std::string oneLine(std::string_view text);

/// The first characters, the last of them "…", of a text with more than `width`; otherwise the text.
std::string cutText(std::string_view text, std::size_t width);

}  // namespace qvn::reports
