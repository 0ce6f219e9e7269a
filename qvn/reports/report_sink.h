// The seam between a report and what shows it: one line after another, each once.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "qvn/reports/report_settings.h"

namespace qvn::reports {

struct HeadColumn {
  std::string heading;
  std::size_t width = 1;  ///< characters
  Alignment alignment = Alignment::Left;
};

struct ReportHead {
  std::string title;
  std::string subtitle;
  std::vector<HeadColumn> columns;  ///< at least one; none is Alignment::Automatic
};

struct ReportCell {
  std::string text;
  bool isNumber = false;  ///< a part of it would mislead
};

struct ReportLine {
  enum class Kind {
    GroupStart,  ///< a caption
    Row,         ///< cells
    Subtotal,    ///< a caption and cells
    Total,       ///< a caption and cells
    Note,        ///< a caption
  };
  Kind kind = Kind::Row;
  std::size_t level = 0;  ///< of a group, from 0 for the outermost
  std::string caption;
  std::vector<ReportCell> cells;  ///< one for each column; in subtotals and totals only sums are numbers
};

/// The first column with a number; the number of cells when there is none.
inline std::size_t firstNumber(const ReportLine& line) {
  const auto found = std::ranges::find_if(line.cells, &ReportCell::isNumber);
  return static_cast<std::size_t>(found - line.cells.begin());
}

/// Texts are UTF-8 without line ends or other control characters. Everything throws RuntimeError when the system
/// refuses to write; then only drop() is of use.
class ReportSink {
 public:
  virtual ~ReportSink() = default;
  virtual void begin(const ReportHead& head) = 0;
  virtual void line(const ReportLine& line) = 0;
  /// Completes what is shown. Without it nothing is left, as after drop().
  virtual void end() = 0;
  virtual void drop() noexcept = 0;
};

}  // namespace qvn::reports
