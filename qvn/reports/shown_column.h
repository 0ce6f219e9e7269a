// The columns and groups of a report, bound to the fields of the recordset that it shows.
#pragma once

#include <string>
#include <vector>

#include "qvn/data/recordset.h"
#include "qvn/reports/report_settings.h"
#include "qvn/reports/report_sink.h"

namespace qvn::reports {

/// A field and how its values become text.
struct ShownField {
  const data::Field* field;
  std::string heading;
  std::string pattern;

  /// On one line; "" for Null unless the pattern has a section for it. Of bytes it tells how many there are.
  [[nodiscard]] std::string textOf(const Variant& value) const;
};

struct ShownColumn : ShownField {
  HeadColumn head;
  bool isSummed;
};

struct ShownGroup : ShownField {
  bool hasSubtotals;
};

/// The recordset must stay open. Throws ProviderError kNoSuchItem for a field that is not there, RuntimeError 5 for a
/// width that no column has and when there is nothing to show.
std::vector<ShownColumn> shownColumns(data::Recordset& rows, const ReportSettings& settings);

/// A group takes the pattern of the first column of its field. Throws ProviderError kNoSuchItem likewise.
std::vector<ShownGroup> shownGroups(data::Recordset& rows, const ReportSettings& settings);

}  // namespace qvn::reports
