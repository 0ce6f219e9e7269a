#include "qvn/dialogs/progress_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

namespace qvn::dialogs {
namespace {

constexpr double kLongest = 359'999;  // 99:59:59

double shareOf(std::int64_t done, std::int64_t total) {
  return std::clamp(static_cast<double>(done) / static_cast<double>(total), 0.0, 1.0);
}

}  // namespace

int percentOf(std::int64_t done, std::int64_t total) {
  if (done >= total) return 100;
  if (done <= 0) return 0;
  const bool isSmall = total <= std::numeric_limits<std::int64_t>::max() / 100;
  return static_cast<int>(isSmall ? done * 100 / total : done / (total / 100));
}

std::string progressLine(std::string_view label, std::int64_t done, std::int64_t total) {
  constexpr int kWidth = 20;
  const int percent = percentOf(done, total);
  std::string line(label);
  line.append("  [");
  for (int i = 0; i < kWidth; ++i) line.append(i < percent * kWidth / 100 ? "█" : "░");
  return line.append("]  ").append(std::to_string(percent)).append(" %");
}

std::string timeLeft(std::chrono::duration<double> elapsed, std::int64_t done, std::int64_t total) {
  const double seconds = elapsed.count();
  if (seconds < 1 || done <= 0 || total <= 0) return "";
  const int left = static_cast<int>(std::lround(std::min(seconds / shareOf(done, total) - seconds, kLongest)));
  std::array<char, 64> text{};
  if (left < 3600) {
    std::snprintf(text.data(), text.size(), "faltan %d:%02d", left / 60, left % 60);
  } else {
    std::snprintf(text.data(), text.size(), "faltan %d:%02d:%02d", left / 3600, left / 60 % 60, left % 60);
  }
  return text.data();
}

}  // namespace qvn::dialogs
