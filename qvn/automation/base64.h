// Base64, the text form of bytes (RFC 4648, section 4).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qvn::automation {

std::string toBase64(std::string_view bytes);
/// Nothing for a text that is not base64 with its padding.
std::optional<std::string> fromBase64(std::string_view text);

}  // namespace qvn::automation
