// The columns of a sheet: what each shows, how, and how wide it is.
#pragma once

#include <string>
#include <vector>

#include "qvn/data/recordset.h"
#include "qvn/exports/cell.h"
#include "qvn/exports/running_sum.h"
#include "qvn/exports/sheet_settings.h"
#include "qvn/exports/workbook_writer.h"

namespace qvn::exports {

class SheetColumn {
 public:
  SheetColumn(const data::Field& field, const ColumnSettings& settings, WorkbookWriter& workbook);

  [[nodiscard]] const data::Field& field() const { return *field_; }
  [[nodiscard]] const std::string& title() const { return title_; }
  [[nodiscard]] bool isTotalled() const { return isTotalled_; }

  /// The look of a cell of this column.
  [[nodiscard]] WorkbookWriter::Look lookOf(const Cell& cell) const;
  [[nodiscard]] WorkbookWriter::Look totalLook() const { return totalLook_; }

  /// Widens the column to what the cell shows, unless it was given a width.
  void measure(const Cell& cell);
  void measureTotal();
  /// With room for the heading's button of the filter, when there is one.
  [[nodiscard]] double width(bool hasFilter) const;

  void addToTotal(const Cell& cell);
  [[nodiscard]] double total() const { return sum_.total(); }

 private:
  [[nodiscard]] std::size_t shownLength(double number) const;

  const data::Field* field_;
  std::string title_;
  std::string numberPattern_;
  bool isGivenFormat_;
  double givenWidth_;
  bool isTotalled_;
  std::size_t longest_ = 0;
  RunningSum sum_;
  WorkbookWriter::Look numberLook_;
  WorkbookWriter::Look generalLook_;
  WorkbookWriter::Look dateLook_;
  WorkbookWriter::Look dateTimeLook_;
  WorkbookWriter::Look timeLook_;
  WorkbookWriter::Look textLook_;
  WorkbookWriter::Look totalLook_;
};

/// One for each field of the recordset, which must stay open. Throws ProviderError kNoSuchItem for settings of a field
/// that is not there and RuntimeError 5 for a width that no column has.
std::vector<SheetColumn> sheetColumns(data::Recordset& rows, const SheetSettings& settings, WorkbookWriter& workbook);

}  // namespace qvn::exports
