// The same workbook by SQLite's and libxlsxwriter's own functions.
#pragma once

#include <string>

namespace qvn::bench {

/// Columns of the query: number, date as days of sheets, text, text, amount.
void exportRaw(const std::string& database, const std::string& query, const std::string& file);

}  // namespace qvn::bench
