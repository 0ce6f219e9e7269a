#include "qvn/reports/report_run.h"

#include <algorithm>

#include "qvn/base/runtime_error.h"
#include "qvn/reports/line_text.h"

namespace qvn::reports {
namespace {

constexpr std::int64_t kRowsBetweenObservations = 1000;
constexpr std::string_view kNoRows = "No hay registros";
constexpr std::string_view kTotal = "Total general";
constexpr std::string_view kSubtotal = "Total ";

bool isSameGroup(const Variant& left, const Variant& right) {
  return left.isNull() || right.isNull() ? left.isNull() == right.isNull() : equals(left, right);
}

}  // namespace

ReportRun::ReportRun(data::Recordset& rows, const ReportSettings& settings, ReportSink& sink)
    : rows_(rows),
      settings_(settings),
      sink_(sink),
      columns_(shownColumns(rows, settings)),
      groups_(shownGroups(rows, settings)),
      hasSums_(std::ranges::any_of(columns_, &ShownColumn::isSummed)),
      groupValues_(groups_.size()),
      sums_(groups_.size() + 1, Sums(columns_.size())) {
  row_.cells.resize(columns_.size());
}

bool ReportRun::run(const ReportObserver& observe) {
  begin();
  for (; !rows_.Eof(); rows_.MoveNext()) {
    const std::size_t changed = count_ == 0 ? 0 : firstChangedGroup();
    if (count_ != 0) closeGroups(changed);
    openGroups(changed);
    ++count_;
    showRow();
    if (count_ % kRowsBetweenObservations == 0 && observe && !observe(count_)) return false;
  }
  if (count_ == 0) {
    sink_.line({.kind = ReportLine::Kind::Note, .caption = std::string(kNoRows), .cells = {}});
  } else {
    closeGroups(0);
    if (settings_.hasTotals && hasSums_) showSums(ReportLine::Kind::Total, 0, sums_.front());
  }
  return !observe || observe(count_);
}

void ReportRun::begin() {
  ReportHead head{.title = oneLine(settings_.title), .subtitle = oneLine(settings_.subtitle), .columns = {}};
  for (const ShownColumn& column : columns_) head.columns.push_back(column.head);
  sink_.begin(head);
}

// The number of groups when none has changed.
std::size_t ReportRun::firstChangedGroup() const {
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    if (!isSameGroup(groups_[i].field->Value(), groupValues_[i])) return i;
  }
  return groups_.size();
}

std::string ReportRun::captionOf(std::size_t group) const {
  return groups_[group].heading + ": " + groups_[group].textOf(groupValues_[group]);
}

void ReportRun::openGroups(std::size_t first) {
  for (std::size_t i = first; i < groups_.size(); ++i) {
    groupValues_[i] = groups_[i].field->Value();
    sink_.line({.kind = ReportLine::Kind::GroupStart, .level = i, .caption = captionOf(i), .cells = {}});
  }
}

void ReportRun::closeGroups(std::size_t first) {
  for (std::size_t i = groups_.size(); i-- > first;) {
    Sums& sums = sums_[i + 1];
    if (hasSums_ && groups_[i].hasSubtotals) showSums(ReportLine::Kind::Subtotal, i, sums);
    for (std::size_t column = 0; column < sums.size(); ++column) sums_[i][column].add(sums[column]);
    sums.assign(columns_.size(), {});
  }
}

void ReportRun::showRow() {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const Variant& value = columns_[i].field->Value();
    row_.cells[i].text = columns_[i].textOf(value);
    row_.cells[i].isNumber = value.isNumeric();
    if (columns_[i].isSummed) addToSum(i, value);
  }
  sink_.line(row_);
}

void ReportRun::addToSum(std::size_t column, const Variant& value) {
  try {
    sums_.back()[column].add(value);
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), "No se puede sumar el campo «" + columns_[column].field->Name() +
                                           "» del registro " + std::to_string(count_) + ": " + error.what());
  }
}

void ReportRun::showSums(ReportLine::Kind kind, std::size_t level, const Sums& sums) {
  ReportLine line{.kind = kind, .level = level, .caption = std::string(kTotal), .cells = {}};
  if (kind == ReportLine::Kind::Subtotal) line.caption = std::string(kSubtotal) + captionOf(level);
  line.cells.resize(columns_.size());
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i].isSummed) line.cells[i] = {columns_[i].textOf(sums[i].total()), true};
  }
  sink_.line(line);
}

}  // namespace qvn::reports
