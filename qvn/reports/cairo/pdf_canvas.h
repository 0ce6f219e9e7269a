// Pages of reports as PDF.
#pragma once

#include <memory>

#include "qvn/reports/page_canvas.h"

namespace qvn::reports {

/// Pages in DejaVu Sans of 9 points, in smaller letters where the columns need it; begin() throws RuntimeError 5 when
/// even the smallest are too large. All methods throw RuntimeError 480 with Cairo's words when it refuses to draw.
std::unique_ptr<PageCanvas> newCairoPdfCanvas(Paper paper, ByteSink bytes);

}  // namespace qvn::reports
