#include "qvn/exports/sheet_writer.h"

#include <algorithm>

#include "qvn/base/runtime_error.h"
#include "qvn/exports/cell_text.h"

namespace qvn::exports {
namespace {

using Kind = Cell::Kind;

constexpr std::int64_t kMeasuredRows = 200;
constexpr std::int64_t kRowsBetweenObservations = 1000;
constexpr std::string_view kTotalCaption = "Total";
// Headings, one row of data and the totals.
constexpr std::int64_t kFewestRows = 3;

void requireFit(const data::Recordset& rows, const SheetSettings& settings) {
  if (rows.FieldCount() > kMostSheetColumns) {
    throw RuntimeError(error_number::kInvalidCall, "La consulta tiene " + std::to_string(rows.FieldCount()) +
                                                       " campos y en una hoja caben " +
                                                       std::to_string(kMostSheetColumns));
  }
  if (settings.mostRows < kFewestRows || settings.mostRows > kMostSheetRows) {
    throw RuntimeError(error_number::kInvalidCall, "Los renglones de una hoja van de " + std::to_string(kFewestRows) +
                                                       " a " + std::to_string(kMostSheetRows));
  }
}

// "B2:B9", with the row numbers that people see.
std::string columnRange(std::size_t column, std::uint32_t lastRow) {
  const std::string letters = columnLetters(column);
  return letters + "2:" + letters + std::to_string(lastRow + 1);
}

}  // namespace

SheetWriter::SheetWriter(data::Recordset& rows, const SheetSettings& settings, Target target)
    : rows_(rows), settings_(settings), target_(target) {
  requireFit(rows, settings);
  columns_ = sheetColumns(rows, settings, target.workbook);
  headingLook_ = target.workbook.addLook({.pattern = "@", .part = CellLook::Part::Heading});
  totalTextLook_ = target.workbook.addLook({.pattern = "@", .part = CellLook::Part::Total});
  name_ = target.names.take(settings.name);
}

bool SheetWriter::write(const ExportObserver& observe) {
  beginSheet(name_);
  for (; !rows_.Eof(); rows_.MoveNext()) {
    if (isFull()) {
      setFilter();
      endSheet();
      fullSheets_.push_back({name_, nextRow_ - 1});
      name_ = target_.names.takeNext(fullSheets_.front().name);
      beginSheet(name_);
    }
    writeRow();
    if (count_ % kRowsBetweenObservations == 0 && observe && !observe(count_)) return false;
  }
  setFilter();
  writeTotals();
  endSheet();
  return !observe || observe(count_);
}

void SheetWriter::beginSheet(const std::string& name) {
  target_.workbook.beginSheet(name);
  ++target_.report.sheets;
  nextRow_ = 0;
  writeHeadings();
}

void SheetWriter::writeHeadings() {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    assignCellText(cell_.text, columns_[i].title());
    target_.workbook.writeText({nextRow_, static_cast<std::uint16_t>(i)}, cell_.text, headingLook_);
  }
  ++nextRow_;
}

// The totals must find a place behind the last row.
bool SheetWriter::isFull() const {
  const std::int64_t taken = nextRow_ + (hasTotals() ? 1 : 0);
  return taken >= settings_.mostRows;
}

bool SheetWriter::hasTotals() const { return std::ranges::any_of(columns_, &SheetColumn::isTotalled); }

void SheetWriter::writeRow() {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    SheetColumn& column = columns_[i];
    assignCell(cell_, column.field().Value(), column.field().Type());
    target_.report.forcedTexts += cell_.isForcedText ? 1 : 0;
    target_.report.cutTexts += cell_.isCut ? 1 : 0;
    if (count_ < kMeasuredRows) column.measure(cell_);
    column.addToTotal(cell_);
    writeCell({nextRow_, static_cast<std::uint16_t>(i)}, cell_, column.lookOf(cell_));
  }
  ++nextRow_;
  ++count_;
  ++target_.report.rows;
}

void SheetWriter::writeCell(WorkbookWriter::Place place, const Cell& cell, WorkbookWriter::Look look) {
  switch (cell.kind) {
    case Kind::Blank:
      break;
    case Kind::Text:
      target_.workbook.writeText(place, cell.text, look);
      break;
    case Kind::Boolean:
      target_.workbook.writeBoolean(place, cell.number != 0, look);
      break;
    case Kind::Number:
    case Kind::Date:
    case Kind::DateTime:
    case Kind::Time:
      target_.workbook.writeNumber(place, cell.number, look);
      break;
  }
}

void SheetWriter::writeTotals() {
  if (!hasTotals() || count_ == 0) return;
  if (!columns_.front().isTotalled()) {
    target_.workbook.writeText({nextRow_, 0}, std::string(kTotalCaption), totalTextLook_);
  }
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    SheetColumn& column = columns_[i];
    if (!column.isTotalled()) continue;
    column.measureTotal();
    target_.workbook.writeFormula({nextRow_, static_cast<std::uint16_t>(i)}, totalFormula(i), column.total(),
                                  column.totalLook());
  }
}

std::string SheetWriter::totalFormula(std::size_t column) const {
  std::string formula = "=SUM(";
  for (const FullSheet& sheet : fullSheets_) {
    formula.append(quotedSheetName(sheet.name)).append("!").append(columnRange(column, sheet.lastRow)).append(",");
  }
  return formula.append(columnRange(column, nextRow_ - 1)).append(")");
}

void SheetWriter::setFilter() {
  if (!settings_.hasFilter || columns_.empty()) return;
  target_.workbook.setFilter({nextRow_ - 1, static_cast<std::uint16_t>(columns_.size() - 1)});
}

void SheetWriter::endSheet() {
  SheetLook look{.isFrozen = settings_.isFrozen};
  for (const SheetColumn& column : columns_) look.widths.push_back(column.width(settings_.hasFilter));
  target_.workbook.endSheet(look);
}

}  // namespace qvn::exports
