// Options that take a time.
#pragma once

#include <chrono>
#include <optional>

#include "apps/qvn/options.h"

namespace qvn::cli {

/// The whole seconds that the option holds; nothing when it was not given. Throws UsageError when it holds anything
/// else.
std::optional<std::chrono::seconds> secondsOf(const Arguments& arguments, const Option& option);

}  // namespace qvn::cli
