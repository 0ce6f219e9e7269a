// What an export wrote.
#pragma once

#include <cstdint>
#include <functional>

namespace qvn::exports {

struct ExportReport {
  std::int64_t rows = 0;
  std::int64_t sheets = 0;
  std::int64_t forcedTexts = 0;  ///< numbers and dates that became texts, as sheets do not hold them
  std::int64_t cutTexts = 0;     ///< texts of which a cell does not hold the end
};

/// Called every thousand rows, and once behind the last, with the rows of the sheet so far; false ends the export.
using ExportObserver = std::function<bool(std::int64_t rows)>;

}  // namespace qvn::exports
