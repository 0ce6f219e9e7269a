// Names with "*" and "?", as devices search for files.
#pragma once

#include <string_view>

namespace qvn::devices {

/// Whether the whole name fits: "*" stands for any characters or none, "?" for one UTF-16 unit, "*.*" for every name.
/// Letters count as they are written.
bool matchesWildcard(std::u16string_view name, std::u16string_view pattern);

}  // namespace qvn::devices
