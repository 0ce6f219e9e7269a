// Rows of a recordset as a report with groups, subtotals and totals.
//
//   Report report({.title = "Ventas",
//                  .columns = {{.field = "articulo"}, {.field = "importe", .pattern = "#,##0.00", .isSummed = true}},
//                  .groups = {{.field = "cliente", .heading = "Cliente"}}});
//   report.save(library.CreaRecordSet("SELECT * FROM partvta ORDER BY cliente", connection), "ventas.pdf");
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/recordset.h"
#include "qvn/reports/report_file.h"
#include "qvn/reports/report_settings.h"
#include "qvn/reports/report_sink.h"

namespace qvn::reports {

/// Called now and then with the number of rows so far, and behind the last; false ends the work.
using ReportObserver = std::function<bool(std::int64_t rows)>;

class Report final : public Object {
 public:
  Report() = default;
  explicit Report(ReportSettings settings) : settings_(std::move(settings)) {}

  [[nodiscard]] const ReportSettings& settings() const { return settings_; }
  void setSettings(ReportSettings settings) { settings_ = std::move(settings); }
  void setTitle(std::string title) { settings_.title = std::move(title); }
  void setSubtitle(std::string subtitle) { settings_.subtitle = std::move(subtitle); }
  void addColumn(ColumnSettings column) { settings_.columns.push_back(std::move(column)); }
  /// Inside those that were added before.
  void addGroup(GroupSettings group) { settings_.groups.push_back(std::move(group)); }

  /// Shows the rows from the current one to the last in `sink`; the recordset stands behind its last row afterwards. No
  /// more than a row and the sums are held. The rows come in the order of the groups; Null is shown as "", and Nulls
  /// make one group. Sums are exact: a Double counts with its 15 digits. A sum of no values is 0.
  ///
  /// False when `observe` ended it: then the sink was dropped. The same is true after an error.
  /// @throws RuntimeError   91 for a null recordset, 5 for settings that no report has, 13 or 6 for a value that cannot
  ///         be summed, or what the sink reports
  /// @throws ProviderError  kObjectClosed, kNoSuchItem for a column or group of no field, or what the engine reports
  bool run(const data::RecordsetPtr& rows, ReportSink& sink, const ReportObserver& observe = nullptr) const;

  /// The same into a file, as newReportFile() makes it.
  bool save(const data::RecordsetPtr& rows, std::string_view path, const ReportFileSettings& file = {},
            const ReportObserver& observe = nullptr) const;

 private:
  ReportSettings settings_;
};
using ReportPtr = std::shared_ptr<Report>;

}  // namespace qvn::reports
