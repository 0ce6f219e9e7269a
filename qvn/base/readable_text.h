// Text that must be shown as it is, where some characters would steer what shows it.
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/utf8.h"

namespace qvn {

/// What stands for a character that is not shown as it is: "\n", "\r" and "\t" as those two characters, other control
/// characters and bytes that are not UTF-8 as "\xHH", characters that change the direction of writing or break lines as
/// "\uHHHH". "" for a character that may be shown.
std::string escapedForm(const utf8::Decoded& character, unsigned char firstByte);

/// `text` with everything escaped but its line ends, which become "\n" alone, and its tabs.
std::string readableText(std::string_view text);

}  // namespace qvn
