// How many rows a command has worked through, and how fast.
#pragma once

#include <cstdint>
#include <functional>

#include "apps/qvn/command.h"
#include "apps/qvn/progress_bar.h"

namespace qvn::cli {

/// Shows the count and how fast it grows; false when the person wants the work to end. Both must outlive it.
std::function<bool(std::int64_t rows)> rowObserver(ProgressBar& bar, Context& context);

}  // namespace qvn::cli
