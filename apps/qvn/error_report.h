// Failures as people read them on standard error.
#pragma once

#include <exception>
#include <string>

#include "qvn/base/runtime_error.h"

namespace qvn::cli {

/// What happened, the engine's words, the numbers and what to do, each on a line of its own that is safe for a
/// terminal; the first begins with "qvn: ". Passwords are masked.
std::string failureReport(const RuntimeError& error);

/// The same for a failure without a number.
std::string failureReport(const std::exception& error);

}  // namespace qvn::cli
