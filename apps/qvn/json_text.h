// Texts in JSON.
#pragma once

#include <string>
#include <string_view>

namespace qvn::cli {

/// Appends `text` as a JSON string with its quotes. Bytes that are not UTF-8 become U+FFFD.
void appendJsonText(std::string& json, std::string_view text);

}  // namespace qvn::cli
