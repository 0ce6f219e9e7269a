// UTF-16, as devices take their texts.
#pragma once

#include <string>
#include <string_view>

namespace qvn::devices {

/// UTF-8 as UTF-16; a byte that is not UTF-8 becomes U+FFFD.
std::u16string toWide(std::string_view text);

/// UTF-16 as UTF-8; a surrogate without its other half becomes U+FFFD.
std::string fromWide(std::u16string_view text);

}  // namespace qvn::devices
