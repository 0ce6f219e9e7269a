#include "apps/qvn/progress_bar.h"

#include "qvn/dialogs/progress_text.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kEraseLine = "\r\x1B[K";

}  // namespace

void ProgressBar::show(std::string_view label, std::int64_t done, std::int64_t total) {
  if (isShown_) show(dialogs::progressLine(label, done, total));
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
