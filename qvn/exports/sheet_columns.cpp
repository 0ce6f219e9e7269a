#include "qvn/exports/sheet_columns.h"

#include <algorithm>
#include <cmath>

#include "qvn/base/format_pattern.h"
#include "qvn/base/letter_case.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/data/field_kind.h"

namespace qvn::exports {
namespace {

using data::FieldType;
using Kind = Cell::Kind;

constexpr std::string_view kWhole = "0";
constexpr std::string_view kAmount = "#,##0.00##";
constexpr std::string_view kDate = "dd/mm/yyyy";
constexpr std::string_view kDateTime = "dd/mm/yyyy hh:mm:ss";
constexpr std::string_view kTime = "hh:mm:ss";
constexpr std::string_view kText = "@";

constexpr std::size_t kNarrowest = 6;
constexpr std::size_t kWidest = 60;
constexpr double kGreatestWidth = 255;
constexpr double kMargin = 1.5;
constexpr std::size_t kFilterButton = 3;
constexpr std::size_t kLongestBoolean = 9;  // "VERDADERO"

// Whole numbers stand without thousands separators, for most of them are codes and numbers of documents.
std::string patternFor(const data::Field& field, bool isTotalled) {
  if (data::kindOf(field.Type()) == data::FieldKind::Whole) return std::string(kWhole);
  if (field.Type() == FieldType::Currency) return std::string(kAmount);
  if (field.Type() == FieldType::Numeric) {
    if (field.NumericScale() <= 0) return std::string(kWhole);
    return "#,##0." + std::string(static_cast<std::size_t>(field.NumericScale()), '0');
  }
  return isTotalled ? std::string(kAmount) : "";
}

std::size_t longestLine(std::string_view text) {
  std::size_t longest = 0;
  while (true) {
    const std::size_t end = text.find('\n');
    longest = std::max(longest, utf8::length(text.substr(0, end)));
    if (end == std::string_view::npos) return longest;
    text.remove_prefix(end + 1);
  }
}

const ColumnSettings& settingsFor(const data::Field& field, const SheetSettings& settings) {
  static const ColumnSettings kUsual;
  const auto found = std::ranges::find_if(
      settings.columns, [&field](const ColumnSettings& row) { return equalIgnoringCase(row.field, field.Name()); });
  return found == settings.columns.end() ? kUsual : *found;
}

double requireWidth(const ColumnSettings& settings) {
  if (settings.width >= 0 && settings.width <= kGreatestWidth) return settings.width;
  throw RuntimeError(error_number::kInvalidCall,
                     "El ancho de la columna «" + utf8::sanitize(settings.field) + "» debe ser de 0 a 255");
}

}  // namespace

SheetColumn::SheetColumn(const data::Field& field, const ColumnSettings& settings, WorkbookWriter& workbook)
    : field_(&field),
      title_(settings.title.empty() ? field.Name() : settings.title),
      numberPattern_(settings.format.empty() ? patternFor(field, settings.isTotalled) : settings.format),
      isGivenFormat_(!settings.format.empty()),
      givenWidth_(requireWidth(settings)),
      isTotalled_(settings.isTotalled) {
  const auto look = [&](std::string_view usual) {
    return workbook.addLook({.pattern = settings.format.empty() ? std::string(usual) : settings.format});
  };
  numberLook_ = look(numberPattern_);
  generalLook_ = look("");
  dateLook_ = look(kDate);
  dateTimeLook_ = look(kDateTime);
  timeLook_ = look(kTime);
  textLook_ = workbook.addLook({.pattern = std::string(kText)});
  totalLook_ = workbook.addLook({.pattern = numberPattern_, .part = CellLook::Part::Total});
}

WorkbookWriter::Look SheetColumn::lookOf(const Cell& cell) const {
  switch (cell.kind) {
    case Kind::Number:
      // An engine may keep fractions where the field's type promises none; they must be seen.
      return !isGivenFormat_ && numberPattern_ == kWhole && cell.number != std::trunc(cell.number) ? generalLook_
                                                                                                   : numberLook_;
    case Kind::Date:
      return dateLook_;
    case Kind::DateTime:
      return dateTimeLook_;
    case Kind::Time:
      return timeLook_;
    case Kind::Text:
      return textLook_;
    case Kind::Boolean:
    case Kind::Blank:
      return generalLook_;
  }
  return generalLook_;
}

std::size_t SheetColumn::shownLength(double number) const {
  // A host's own format may say anything.
  if (isGivenFormat_) return std::max(numberPattern_.size(), formatValue(Variant(number), kAmount).size());
  return formatValue(Variant(number), numberPattern_).size();
}

void SheetColumn::measure(const Cell& cell) {
  if (givenWidth_ > 0) return;
  std::size_t length = 0;
  switch (cell.kind) {
    case Kind::Number:
      length = shownLength(cell.number);
      break;
    case Kind::Date:
      length = kDate.size();
      break;
    case Kind::DateTime:
      length = kDateTime.size();
      break;
    case Kind::Time:
      length = kTime.size();
      break;
    case Kind::Boolean:
      length = kLongestBoolean;
      break;
    case Kind::Text:
      length = longestLine(cell.text);
      break;
    case Kind::Blank:
      break;
  }
  longest_ = std::max(longest_, length);
}

void SheetColumn::measureTotal() {
  if (isTotalled_) longest_ = std::max(longest_, shownLength(total()));
}

double SheetColumn::width(bool hasFilter) const {
  if (givenWidth_ > 0) return givenWidth_;
  const std::size_t heading = longestLine(title_) + (hasFilter ? kFilterButton : 0);
  return static_cast<double>(std::clamp(std::max(heading, longest_), kNarrowest, kWidest)) + kMargin;
}

void SheetColumn::addToTotal(const Cell& cell) {
  // What SUM adds: all numbers, dates among them, and neither texts nor Booleans.
  if (isTotalled_ && cell.kind != Kind::Text && cell.kind != Kind::Boolean) sum_.add(cell.number);
}

std::vector<SheetColumn> sheetColumns(data::Recordset& rows, const SheetSettings& settings, WorkbookWriter& workbook) {
  for (const ColumnSettings& column : settings.columns) rows.Fields(column.field);
  std::vector<SheetColumn> columns;
  columns.reserve(rows.FieldCount());
  for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
    const data::Field& field = rows.Fields(i);
    columns.emplace_back(field, settingsFor(field, settings), workbook);
  }
  return columns;
}

}  // namespace qvn::exports
