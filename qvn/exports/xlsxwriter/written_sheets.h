// What arrived of the sheets in a workbook file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qvn::exports::xlsxwriter {

/// True when the file holds these sheets in this order to their ends, each with so many rows. libxlsxwriter does not
/// notice when a temporary file, out of which it puts the workbook together, could not be written whole.
bool holdsSheets(const std::string& path, const std::vector<std::int64_t>& rowsOfSheets);

}  // namespace qvn::exports::xlsxwriter
