// Rows of recordsets as a workbook file, .xlsx, for people to go on with in a spreadsheet program.
//
//   auto excel = library.NewExcel();
//   excel->Open("ventas.xlsx");
//   excel->AddSheet(library.CreaRecordSet("SELECT articulo, importe FROM partvta", connection),
//                   {.name = "Ventas", .columns = {{.field = "importe", .isTotalled = true}}});
//   excel->Close();
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/recordset.h"
#include "qvn/exports/export_report.h"
#include "qvn/exports/sheet_settings.h"
#include "qvn/host/replaced_file.h"

namespace qvn::exports {

/// Rows are written as they come, so that memory does not grow with their number when the recordset streams. The file
/// appears under its name when Close() succeeds; until then, and for good after a failure or a cancelled sheet, an
/// older file of that name stays as it was.
class SpreadsheetExport final : public Object {
 public:
  using OnExisting = host::OnExisting;

  SpreadsheetExport();
  ~SpreadsheetExport() override;
  SpreadsheetExport(const SpreadsheetExport&) = delete;
  SpreadsheetExport& operator=(const SpreadsheetExport&) = delete;

  /// Begins the workbook of that path; one begun before and not closed is dropped. What is written stands in a file
  /// beside it, "ventas.xlsx.parcial", and in temporary files that have no name.
  /// @throws RuntimeError  58 when there is a file of that name and it is not to be replaced, 429 when no adapter is
  ///         linked, or what the system refuses: 70, 76, ...
  void Open(std::string_view path, OnExisting onExisting = OnExisting::Refuse);

  /// Writes the rows from the current one to the last as a sheet; the recordset stands behind its last row afterwards.
  /// Rows that one sheet does not hold go on in a next one, "Ventas (2)". A sum is a formula with its result, behind
  /// the last row, and takes in the sheets before it; without rows there is none.
  ///
  /// False when `observe` ended it: then nothing is left of the workbook. The same is true after an error.
  /// @throws RuntimeError   91 for a null recordset, 5 for settings that no sheet has, 52 when no workbook is open, 61
  ///         when the disk is full, or what else the system refuses
  /// @throws ProviderError  kObjectClosed, kNoSuchItem for a column of no field, or what the engine reports
  bool AddSheet(const data::RecordsetPtr& rows, const SheetSettings& settings = {},
                const ExportObserver& observe = nullptr);

  /// Completes the file. Throws RuntimeError 5 without a sheet, 52 when no workbook is open, 61 when the disk is full,
  /// or what else the system refuses; no file is left then.
  void Close();

  /// Drops what was begun and not closed. Harmless otherwise.
  void Cancel() noexcept;

  /// What was written since Open.
  [[nodiscard]] const ExportReport& Report() const { return report_; }

 private:
  struct Workbook;
  Workbook& opened();

  std::unique_ptr<Workbook> workbook_;
  ExportReport report_;
};
using SpreadsheetExportPtr = std::shared_ptr<SpreadsheetExport>;

}  // namespace qvn::exports
