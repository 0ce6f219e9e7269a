// The rows of one recordset as a sheet, or as several where one is too short.
#pragma once

#include <vector>

#include "qvn/data/recordset.h"
#include "qvn/exports/export_report.h"
#include "qvn/exports/sheet_columns.h"
#include "qvn/exports/sheet_names.h"
#include "qvn/exports/sheet_settings.h"
#include "qvn/exports/workbook_writer.h"

namespace qvn::exports {

class SheetWriter {
 public:
  struct Target {
    WorkbookWriter& workbook;
    SheetNames& names;
    ExportReport& report;
  };
  /// Throws as sheetColumns() and SheetNames::take(), and RuntimeError 5 for more columns than a sheet has or too few
  /// rows for one of data.
  SheetWriter(data::Recordset& rows, const SheetSettings& settings, Target target);

  /// Writes the rows from the current one to the last. False when `observe` ended it.
  bool write(const ExportObserver& observe);

 private:
  void beginSheet(const std::string& name);
  void setFilter();
  void endSheet();
  void writeHeadings();
  void writeRow();
  void writeCell(WorkbookWriter::Place place, const Cell& cell, WorkbookWriter::Look look);
  void writeTotals();
  [[nodiscard]] std::string totalFormula(std::size_t column) const;
  [[nodiscard]] bool hasTotals() const;
  [[nodiscard]] bool isFull() const;

  // Data rows of a sheet that is finished.
  struct FullSheet {
    std::string name;
    std::uint32_t lastRow;
  };

  data::Recordset& rows_;
  const SheetSettings& settings_;
  Target target_;
  std::string name_;
  std::vector<SheetColumn> columns_;
  std::vector<FullSheet> fullSheets_;
  WorkbookWriter::Look headingLook_;
  WorkbookWriter::Look totalTextLook_;
  std::uint32_t nextRow_ = 0;
  std::int64_t count_ = 0;
  Cell cell_;
};

}  // namespace qvn::exports
