// One pass over the rows of a report.
#pragma once

#include <cstdint>
#include <vector>

#include "qvn/reports/exact_sum.h"
#include "qvn/reports/report.h"
#include "qvn/reports/shown_column.h"

namespace qvn::reports {

class ReportRun {
 public:
  /// Throws as shownColumns() and shownGroups().
  ReportRun(data::Recordset& rows, const ReportSettings& settings, ReportSink& sink);

  /// Shows everything from begin() to the totals. False when `observe` ended it.
  bool run(const ReportObserver& observe);

 private:
  using Sums = std::vector<ExactSum>;  // one for each column

  void begin();
  [[nodiscard]] std::size_t firstChangedGroup() const;
  void openGroups(std::size_t first);
  void closeGroups(std::size_t first);
  void showRow();
  void addToSum(std::size_t column, const Variant& value);
  void showSums(ReportLine::Kind kind, std::size_t level, const Sums& sums);
  [[nodiscard]] std::string captionOf(std::size_t group) const;

  data::Recordset& rows_;
  const ReportSettings& settings_;
  ReportSink& sink_;
  std::vector<ShownColumn> columns_;
  std::vector<ShownGroup> groups_;
  bool hasSums_;
  std::vector<Variant> groupValues_;
  // Of all rows, then of each group from the outermost. A row adds to the innermost; a group that ends adds to the one
  // around it.
  std::vector<Sums> sums_;
  std::int64_t count_ = 0;
  ReportLine row_;
};

}  // namespace qvn::reports
