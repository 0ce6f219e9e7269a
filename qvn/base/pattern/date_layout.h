// Dates by date patterns.
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/date.h"

namespace qvn::pattern {

/// `date` by one section of a date pattern. "/" prints the regional date separator; m or mm behind h or hh, with no
/// other code between, is the minute; a marker such as AM/PM anywhere makes the hours run from 1 to 12. Throws
/// RuntimeError 5 when the date is outside the range of dates.
std::string layoutDate(Date date, std::string_view section);

}  // namespace qvn::pattern
