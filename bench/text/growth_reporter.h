// Reports benchmarks on the console and, at the end, how the time of each one grows with its input.
//
//   exponent  0.99  clAt        (1: linear, 2: quadratic)
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace qvn::bench {

/// Takes every run whose complexity size is set. The exponent is the slope of the straight line through the points
/// (log size, log time), fitted by least squares.
class GrowthReporter final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  struct Point {
    double logSize;
    double logTime;
  };
  static double slope(const std::vector<Point>& points);

  std::map<std::string, std::vector<Point>> points_;  // by the benchmark's name
};

}  // namespace qvn::bench
