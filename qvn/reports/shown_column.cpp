#include "qvn/reports/shown_column.h"

#include <algorithm>

#include "qvn/base/format_pattern.h"
#include "qvn/base/letter_case.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/data/field_kind.h"
#include "qvn/reports/line_text.h"

namespace qvn::reports {
namespace {

using data::FieldType;

constexpr std::size_t kNarrowestText = 4;
constexpr std::size_t kWidestText = 40;
constexpr std::size_t kUnknownTextWidth = 20;
constexpr std::size_t kIntegerWidth = 10;
constexpr std::size_t kAmountWidth = 14;
constexpr std::size_t kDateWidth = 10;
constexpr std::size_t kMomentWidth = 19;

std::size_t widthOf(const data::Field& field) {
  const FieldType type = field.Type();
  const data::FieldKind kind = data::kindOf(type);
  if (data::isNumber(kind)) return data::hasDecimals(kind) ? kAmountWidth : kIntegerWidth;
  if (type == FieldType::DbDate || type == FieldType::DbTime || type == FieldType::Boolean) return kDateWidth;
  if (type == FieldType::Date || type == FieldType::DbTimeStamp) return kMomentWidth;
  if (field.DefinedSize() <= 0) return kUnknownTextWidth;
  return std::clamp(static_cast<std::size_t>(field.DefinedSize()), kNarrowestText, kWidestText);
}

Alignment alignmentOf(const ColumnSettings& column, const data::Field& field) {
  if (column.alignment != Alignment::Automatic) return column.alignment;
  return column.isSummed || data::isNumber(data::kindOf(field.Type())) ? Alignment::Right : Alignment::Left;
}

std::string headingOf(const std::string& heading, const data::Field& field) {
  return oneLine(heading.empty() ? field.Name() : heading);
}

ShownColumn shownColumn(const data::Field& field, const ColumnSettings& settings) {
  if (settings.width > kWidestColumn) {
    throw RuntimeError(error_number::kInvalidCall, "La columna «" + settings.field + "» es más ancha que " +
                                                       std::to_string(kWidestColumn) + " caracteres");
  }
  ShownColumn column{{&field, headingOf(settings.heading, field), settings.pattern}, {}, settings.isSummed};
  column.head = {.heading = column.heading,
                 .width = settings.width != 0 ? settings.width : std::max(utf8::length(column.heading), widthOf(field)),
                 .alignment = alignmentOf(settings, field)};
  return column;
}

bool makesGroup(const ReportSettings& settings, std::string_view field) {
  return std::ranges::any_of(settings.groups,
                             [field](const GroupSettings& group) { return equalIgnoringCase(group.field, field); });
}

std::string patternOf(const ReportSettings& settings, std::string_view field) {
  const auto found = std::ranges::find_if(
      settings.columns, [field](const ColumnSettings& column) { return equalIgnoringCase(column.field, field); });
  return found == settings.columns.end() ? std::string() : found->pattern;
}

}  // namespace

std::string ShownField::textOf(const Variant& value) const {
  if (const auto* const bytes = value.getIf<std::string>(); bytes != nullptr && data::isBinary(field->Type())) {
    return std::to_string(bytes->size()) + " bytes";
  }
  if (!pattern.empty()) return oneLine(formatValue(value, pattern));
  return value.isNull() ? std::string() : oneLine(value.toText());
}

std::vector<ShownColumn> shownColumns(data::Recordset& rows, const ReportSettings& settings) {
  std::vector<ShownColumn> columns;
  for (const ColumnSettings& column : settings.columns) {
    columns.push_back(shownColumn(rows.Fields(column.field), column));
  }
  for (std::size_t i = 0; settings.columns.empty() && i < rows.FieldCount(); ++i) {
    const data::Field& field = rows.Fields(i);
    if (!makesGroup(settings, field.Name())) columns.push_back(shownColumn(field, {.field = field.Name()}));
  }
  if (columns.empty()) throw RuntimeError(error_number::kInvalidCall, "El informe no tiene columnas");
  return columns;
}

std::vector<ShownGroup> shownGroups(data::Recordset& rows, const ReportSettings& settings) {
  std::vector<ShownGroup> groups;
  for (const GroupSettings& group : settings.groups) {
    const data::Field& field = rows.Fields(group.field);
    groups.push_back({{&field, headingOf(group.heading, field), patternOf(settings, group.field)}, group.hasSubtotals});
  }
  return groups;
}

}  // namespace qvn::reports
