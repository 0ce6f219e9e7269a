// Reading JSON.
#pragma once

#include <string_view>

#include "qvn/automation/json.h"

namespace qvn::automation {

/// How many arrays and objects may stand inside one another.
inline constexpr int kDeepestJson = 64;

/// The one value that `text` holds, by RFC 8259. Throws RuntimeError 5, whose text names the byte where it goes wrong,
/// for anything else, for texts that are not UTF-8, and for values nested deeper than kDeepestJson.
Json parseJson(std::string_view text);

}  // namespace qvn::automation
