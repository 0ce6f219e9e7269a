#include "apps/qvn/progress_bar.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kEraseLine = "\r\x1B[K";

}  // namespace

std::string progressLine(std::string_view label, std::int64_t done, std::int64_t total) {
  constexpr std::int64_t kWidth = 20;
  const std::int64_t percent = total == 0 ? 100 : done * 100 / total;
  std::string line(label);
  line.append("  [");
  for (std::int64_t i = 0; i < kWidth; ++i) line.append(i < percent * kWidth / 100 ? "█" : "░");
  return line.append("]  ").append(std::to_string(percent)).append(" %");
}

void ProgressBar::show(std::string_view label, std::int64_t done, std::int64_t total) {
  if (isShown_) show(progressLine(label, done, total));
}

void ProgressBar::show(std::string line) {
  if (!isShown_ || line == line_) return;
  messages_ << kEraseLine << line;
  messages_.flush();
  line_ = std::move(line);
}

void ProgressBar::clear() {
  if (line_.empty()) return;
  messages_ << kEraseLine;
  messages_.flush();
  line_.clear();
}

}  // namespace qvn::cli
