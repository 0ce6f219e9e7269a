// What a host may ask of a sheet.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qvn::exports {

/// Rows and columns that a sheet of the .xlsx format has.
inline constexpr std::int64_t kMostSheetRows = 1'048'576;
inline constexpr std::size_t kMostSheetColumns = 16'384;

// Members have initializers so that a host names only those that it sets.
/// One field's column. What is left out follows from the field.
struct ColumnSettings {
  std::string field = {};   ///< its name, without regard to case
  std::string title = {};   ///< heading; the field's name when empty
  std::string format = {};  ///< number format, such as "#,##0.00" or "dd-mmm-yy"; by the field's type when empty
  double width = 0;         ///< in characters, up to 255; measured when 0
  bool isTotalled = false;  ///< the sheet ends with the sum of this column
};

struct SheetSettings {
  std::string name = {};                     ///< "Hoja1", "Hoja2", ... when empty
  std::vector<ColumnSettings> columns = {};  ///< those that depart from the usual; the order is the recordset's
  bool isFrozen = true;                      ///< headings stay when the rows scroll
  bool hasFilter = true;                     ///< headings have a filter
  std::int64_t mostRows = kMostSheetRows;    ///< headings and totals among them; what is left goes on in a next sheet
};

}  // namespace qvn::exports
