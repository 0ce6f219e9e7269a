#include "apps/qvn/row_progress.h"

#include <chrono>
#include <string>

#include "apps/qvn/dump_reports.h"
#include "apps/qvn/interruption.h"

namespace qvn::cli {

std::function<bool(std::int64_t rows)> rowObserver(ProgressBar& bar, Context& context) {
  using Clock = std::chrono::steady_clock;
  return [&bar, &context, begun = Clock::now()](std::int64_t rows) {
    const double seconds = std::chrono::duration<double>(Clock::now() - begun).count();
    std::string line = countText(rows, context) + " registros";
    if (seconds >= 1) {
      const auto speed = static_cast<std::int64_t>(static_cast<double>(rows) / seconds);
      line += ", " + countText(speed, context) + " por segundo";
    }
    bar.show(std::move(line));
    return !Interruption::isRequested();
  };
}

}  // namespace qvn::cli
