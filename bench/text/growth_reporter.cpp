#include "bench/text/growth_reporter.h"

#include <cmath>
#include <iomanip>

namespace qvn::bench {

void GrowthReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    const bool isMeasured = run.run_type == Run::RT_Iteration && !run.error_occurred;
    if (!isMeasured || run.complexity_n <= 0 || run.iterations == 0) continue;
    const double time = run.cpu_accumulated_time / static_cast<double>(run.iterations);
    points_[run.run_name.function_name].push_back({std::log(static_cast<double>(run.complexity_n)), std::log(time)});
  }
  ConsoleReporter::ReportRuns(runs);
}

void GrowthReporter::Finalize() {
  ConsoleReporter::Finalize();
  for (const auto& [name, points] : points_) {
    if (points.size() < 2) continue;
    GetOutputStream() << "exponent  " << std::fixed << std::setprecision(2) << slope(points) << "  " << name << '\n';
  }
}

double GrowthReporter::slope(const std::vector<Point>& points) {
  double size = 0;
  double time = 0;
  for (const Point& point : points) {
    size += point.logSize / static_cast<double>(points.size());
    time += point.logTime / static_cast<double>(points.size());
  }
  double covariance = 0;
  double variance = 0;
  for (const Point& point : points) {
    covariance += (point.logSize - size) * (point.logTime - time);
    variance += (point.logSize - size) * (point.logSize - size);
  }
  return covariance / variance;
}

}  // namespace qvn::bench
